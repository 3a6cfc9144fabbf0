#include "c/handles.h"

#include "ui/RunningKit.h"

namespace orrelo::c {

std::chrono::milliseconds durationOf(std::int64_t milliseconds) {
  constexpr std::chrono::milliseconds maximum = std::chrono::hours(24 * 365);
  if (milliseconds < 0) throw CallFailure{ORRELO_INVALID_ARGUMENT, "a duration is negative"};
  return std::min(std::chrono::milliseconds(milliseconds), maximum);
}

void requireInitialized() {
  if (RunningKit::current()) return;
  throw CallFailure{ORRELO_NOT_INITIALIZED, "orrelo_initialize has not been called"};
}

}  // namespace orrelo::c
