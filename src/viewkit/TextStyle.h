#pragma once

#include "base/Color.h"

namespace orrelo {

/// How a line of text is written, in the system's font.
struct TextStyle {
  enum class Weight { regular, semibold, bold, heavy };

  /// In points.
  double size = 0.0;
  Weight weight = Weight::regular;
  Color color;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

}  // namespace orrelo
