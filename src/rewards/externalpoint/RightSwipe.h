#pragma once

#include "ui/Geometry.h"

#include <orrelo/Export.h>

#include <chrono>
#include <optional>

namespace orrelo {

/// Recognises a quick movement of one finger to the right. Main thread.
class ORRELO_EXPORT RightSwipe {
 public:
  /// In points.
  static constexpr double minimumDistance = 50.0;
  static constexpr std::chrono::milliseconds maximumDuration{500};
  /// The largest movement up or down, as a share of the movement to the right.
  static constexpr double maximumSlope = 0.5;

  void begin(Position at, std::chrono::milliseconds time);
  /// Returns true when the movement has become a swipe, once for each `begin`.
  bool move(Position to, std::chrono::milliseconds time);
  /// Ignores the rest of the movement, such as after a second finger.
  void cancel() { start_.reset(); }

 private:
  struct Start {
    Position at;
    std::chrono::milliseconds time;
  };
  std::optional<Start> start_;
};

}  // namespace orrelo
