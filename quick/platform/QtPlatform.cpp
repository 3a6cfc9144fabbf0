#include "platform/QtImageCodec.h"
#include "platform/QtMainLoop.h"

#include <orrelo/quick/OrreloQuick.h>

namespace orrelo::quick {

Platform platform(const HostApplication& host) {
  auto platform = Platform::posix(host);
  platform.mainLoop = std::make_shared<QtMainLoop>();
  platform.imageCodec = std::make_shared<QtImageCodec>();
  return platform;
}

}  // namespace orrelo::quick
