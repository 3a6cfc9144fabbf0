#pragma once

#include <chrono>

namespace orrelo {

/// An animation of one property, played by a front.
struct Animation {
  enum class Curve { easeOut, easeInOut };

  double from = 0.0;
  double to = 0.0;
  std::chrono::milliseconds duration{0};
  /// The property keeps the value `from` during the delay.
  std::chrono::milliseconds delay{0};
  Curve curve = Curve::easeInOut;

  friend bool operator==(const Animation&, const Animation&) = default;
};

}  // namespace orrelo
