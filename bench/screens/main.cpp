// The screens' targets, in Qt's software renderer without a display: from a campaign's bytes to the picture,
// and what screens leave behind.
#include "../Targets.h"
#include "campaign/CampaignViewController.h"
#include "campaign/attendance/AttendanceCampaignView.h"
#include "quick/Service.h"
#include "reactive/Observable.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <malloc.h>
#include <optional>
#include <unistd.h>

namespace orrelo::bench {
namespace {

using Clock = std::chrono::steady_clock;

// The calendar's picture of a bonus, as large as a service sends it.
std::string icon() {
  QImage image(192, 192, QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgba(x, y, x ^ y, 255 - x));
  }
  QBuffer file;
  image.save(&file, "PNG");
  return file.data().toStdString();
}

/// A host's window over the kit, whose service is in this process.
class Stage {
 public:
  Stage() {
    auto platform = quick::platform(
        {.bundleIdentifier = "bench", .dataDirectory = folder_.path(), .cacheDirectory = folder_.path()});
    service_ = std::make_shared<test::Service>(platform.mainLoop);
    platform.urlSession = service_;
    Platform::install(std::move(platform));
    service_->answers["/campaigns/c-1"] = {200, test::campaignReply(test::richAttendancePage())};
    service_->answers["/gift.png"] = {200, icon()};
    service_->answers["/attend"] = {200, test::richAttendancePage()};
    Orrelo::initialize(ORLConfig("bench-app"));
    Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::unknown, {}));
    engine_.loadData(
        "import QtQuick\nimport Orrelo\n"
        "Window { width: 390; height: 844; visible: true; OrreloHost { anchors.fill: parent } }");
    window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().value(0));
    if (window_ == nullptr) std::abort();
    QObject::connect(window_, &QQuickWindow::frameSwapped, window_, [this] { ++frames_; });
    runUntil([this] { return frames_ > 0; });
  }

  /// Milliseconds from the call to the first frame with the page on it.
  double open() {
    const auto start = Clock::now();
    Orrelo::showCampaign("c-1", host());
    return untilFrameWithOtherThan(nullptr, start);
  }

  /// Milliseconds from the press of the button to the first frame with the page that came of it.
  double participate() {
    const auto before = screen()->state().content;
    const auto start = Clock::now();
    std::dynamic_pointer_cast<AttendanceCampaignView>(before)->actionView->onClick();
    return untilFrameWithOtherThan(before, start);
  }

  void close() {
    const std::weak_ptr<ViewController> gone = screen();
    screen()->dismiss(false);
    runUntil([&] { return gone.expired(); });
  }

 private:
  std::shared_ptr<ViewController> host() { return quick::hostViewController(window_); }
  std::shared_ptr<CampaignViewController> screen() {
    return std::dynamic_pointer_cast<CampaignViewController>(host()->presentedViewController());
  }
  /// Until a frame was painted after the screen's content became another.
  double untilFrameWithOtherThan(const std::shared_ptr<View>& content, Clock::time_point start) {
    std::optional<std::size_t> framesBefore;
    const auto subscription = screen()->states().subscribe([&](const CampaignViewController::State& state) {
      if (!framesBefore && state.content != content) framesBefore = frames_;
    });
    runUntil([&] { return framesBefore && frames_ > *framesBefore; });
    subscription.dispose();
    return secondsSince(start) * 1e3;
  }
  template <class Holds>
  static void runUntil(const Holds& holds) {
    const auto start = Clock::now();
    while (!holds()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
      QCoreApplication::sendPostedEvents(nullptr,
                                         QEvent::DeferredDelete);  // else only a running loop does it
      if (secondsSince(start) > 10.0) std::abort();
    }
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<test::Service> service_;
  QQmlApplicationEngine engine_;
  QQuickWindow* window_ = nullptr;
  std::size_t frames_ = 0;
};

Stage& stage() {
  static auto* const stage = new Stage;
  return *stage;
}

double residentMebibytes() {
  malloc_trim(0);
  std::size_t pages = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

std::vector<double> measureTimes() {
  std::vector<double> openings;
  std::vector<double> rebuildings;
  for (int i = 0; i < 20; ++i) {
    openings.push_back(stage().open());
    rebuildings.push_back(stage().participate());
    stage().close();
  }
  return {quantile(openings, 0.5), quantile(rebuildings, 0.5)};
}

std::vector<double> measureGrowth() {
  const auto openAndClose = [] {
    stage().open();
    stage().close();
  };
  for (int i = 0; i < 20; ++i) openAndClose();
  const double before = residentMebibytes();
  for (int i = 0; i < 200; ++i) openAndClose();
  return {residentMebibytes() - before};
}

}  // namespace
}  // namespace orrelo::bench

int main(int argumentCount, char** arguments) {
  using namespace orrelo::bench;
  const QGuiApplication application(argumentCount, arguments);
  add({{"campaign screen, from the bytes to the first frame", "ms", 60},
       {"campaign screen, rebuilt after a participation", "ms", 25}},
      &measureTimes);
  add({{"resident memory that 200 openings add", "MiB", 1}}, &measureGrowth);
  const bool allMet = runAll(argumentCount, arguments);
  std::fflush(stdout);
  std::_Exit(allMet ? 0 : 1);
}
