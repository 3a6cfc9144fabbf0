#pragma once

#include "ui/Animation.h"

#include <chrono>

namespace orrelo {

/// A transition of everything that a window shows, played by a front in place of the animation of a screen.
struct Transition {
  /// With `reveal` the former content moves away and uncovers the new content, which does not move.
  enum class Type { reveal };
  /// The edge at which the new content becomes visible first.
  enum class Subtype { fromLeft };

  Type type = Type::reveal;
  Subtype subtype = Subtype::fromLeft;
  std::chrono::milliseconds duration{0};
  Animation::Curve curve = Animation::Curve::easeInOut;

  friend bool operator==(const Transition&, const Transition&) = default;
};

}  // namespace orrelo
