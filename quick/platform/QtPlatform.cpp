#include "quick/platform/QtApplication.h"
#include "quick/platform/QtImageCodec.h"
#include "quick/platform/QtMainLoop.h"

#include <orrelo/quick/OrreloQuick.h>

#include <QGuiApplication>

namespace orrelo::quick {

Platform platform(const HostApplication& host) {
  auto platform = Platform::posix(host);
  platform.mainLoop = std::make_shared<QtMainLoop>();
  platform.imageCodec = std::make_shared<QtImageCodec>();
  const auto application = std::make_shared<PosixApplication>();
  platform.application = application;
  new QtApplication(application, qGuiApp);
  return platform;
}

}  // namespace orrelo::quick
