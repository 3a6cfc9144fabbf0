#include "quick/platform/warmUpThreads.h"

#include <orrelo/quick/OrreloQuick.h>

#include <cstdlib>
#include <string_view>
#include <utility>

namespace orrelo::quick {
namespace {

// Never destroyed, like the platform.
WarmUpThreads& threadsOfThePlatform() {
  static auto* const threads = new WarmUpThreads;
  return *threads;
}

bool& isEnabled() {
  static bool isEnabled = [] {
    const char* const value = ::secure_getenv("ORRELO_WARM_UP");
    return value == nullptr || std::string_view(value) != "0";
  }();
  return isEnabled;
}

}  // namespace

void setWarmUpThreads(WarmUpThreads threads) {
  threadsOfThePlatform() = std::move(threads);
}

WarmUpThreads warmUpThreads() {
  return isEnabled() ? threadsOfThePlatform() : WarmUpThreads();
}

void setWarmUpEnabled(bool isOn) {
  isEnabled() = isOn;
}

}  // namespace orrelo::quick
