#include "screens/Stage.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace orrelo::bench {

double residentMebibytes() {
  malloc_trim(0);
  std::size_t pages = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

Stage& Stage::shared() {
  static auto* const stage = new Stage;
  return *stage;
}

Stage::Stage() {
  auto platform = quick::platform(
      {.bundleIdentifier = "bench", .dataDirectory = folder_.path(), .cacheDirectory = folder_.path()});
  service_ = std::make_shared<test::Service>(platform.mainLoop);
  platform.urlSession = service_;
  Platform::install(std::move(platform));
  Orrelo::initialize(ORLConfig("bench-app"));
  Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::unknown, {}));
  engine_.loadData(QByteArray("import QtQuick\nimport Orrelo\nWindow { ") + windowSize +
                   "; visible: true; OrreloHost { anchors.fill: parent } }");
  window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().value(0));
  if (window_ == nullptr) std::abort();
  QObject::connect(window_, &QQuickWindow::frameSwapped, window_, [this] { ++frames_; });
  runUntil([this] { return frames_ > 0; });
}

double Stage::open(const std::string& id) {
  const auto start = std::chrono::steady_clock::now();
  Orrelo::showCampaign(id, host());
  return waitForNewContent(nullptr, start);
}

void Stage::close() {
  const std::weak_ptr<ViewController> gone = screen();
  const auto framesBefore = frames_;
  screen()->dismiss(false);
  runUntil([&] { return gone.expired() && frames_ > framesBefore; });
}

std::shared_ptr<ViewController> Stage::host() const {
  return quick::hostViewController(window_);
}

std::shared_ptr<CampaignViewController> Stage::screen() const {
  return std::dynamic_pointer_cast<CampaignViewController>(host()->presentedViewController());
}

double Stage::waitForNewContent(const std::shared_ptr<View>& content,
                                std::chrono::steady_clock::time_point start) {
  std::optional<std::size_t> framesBefore;
  const auto subscription = screen()->stateChanges().subscribe([&](reactive::Unit) {
    if (!framesBefore && screen()->state().content != content) framesBefore = frames_;
  });
  runUntil([&] { return framesBefore && frames_ > *framesBefore; });
  subscription.dispose();
  return secondsSince(start) * 1e3;
}

}  // namespace orrelo::bench
