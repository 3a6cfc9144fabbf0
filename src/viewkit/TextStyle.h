#pragma once

#include "base/Color.h"

namespace orrelo {

/// The style of a line of text in the system font.
struct TextStyle {
  enum class Weight { regular, semibold, bold, heavy };

  /// In points.
  double size = 0.0;
  Weight weight = Weight::regular;
  Color color;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

}  // namespace orrelo
