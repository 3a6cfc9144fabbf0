#include "rewards/externalpoint/RightSwipe.h"

#include <cmath>

namespace orrelo {

void RightSwipe::begin(Position at, std::chrono::milliseconds time) {
  start_ = Start{at, time};
}

bool RightSwipe::move(Position to, std::chrono::milliseconds time) {
  if (!start_) return false;
  if (time - start_->time > maximumDuration) {
    cancel();
    return false;
  }
  const double right = to.x - start_->at.x;
  if (right < minimumDistance || std::abs(to.y - start_->at.y) > maximumSlope * right) return false;
  cancel();
  return true;
}

}  // namespace orrelo
