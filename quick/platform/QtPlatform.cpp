#include "platform/QtMainLoop.h"

#include <orrelo/quick/OrreloQuick.h>

namespace orrelo::quick {

Platform platform(const HostApplication& host) {
  auto platform = Platform::posix(host);
  platform.mainLoop = std::make_shared<QtMainLoop>();
  return platform;
}

}  // namespace orrelo::quick
