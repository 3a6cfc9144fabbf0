// Prints what a process that has shown nothing yet takes to show its first content: the milliseconds to the
// first frame with it, the longest turn of the event loop while the host rested before, also in milliseconds,
// and the process's memory in mebibytes before the content is shown.
// Usage: orrelo-bench-first-campaign <data folder> [<reply of the service with a campaign>]
// Without a reply the content is one text of the host's own, and the process does not use the kit.
#include "campaign/CampaignViewController.h"
#include "quick/Service.h"
#include "quick/host/WarmUp.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace {

using namespace orrelo;
using Milliseconds = std::chrono::duration<double, std::milli>;
using SteadyClock = std::chrono::steady_clock;

// The time for which the host rests, and the longest time for which it waits for the kit's preparation.
constexpr auto rest = std::chrono::milliseconds(500);
constexpr auto longestRest = std::chrono::seconds(10);

std::shared_ptr<test::Service> startKit(const char* folder, const char* replyFile) {
  auto platform =
      quick::platform({.bundleIdentifier = "sample", .dataDirectory = folder, .cacheDirectory = folder});
  const auto service = std::make_shared<test::Service>(platform.mainLoop);
  std::ifstream file(replyFile);
  service->answers["/campaigns/first"] = {200, std::string(std::istreambuf_iterator<char>(file), {})};
  platform.urlSession = service;
  Platform::install(std::move(platform));
  Orrelo::initialize(ORLConfig("sample-app"));
  Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::unknown, {}));
  return service;
}

// RssAnon, which excludes the pages of files.
double memory() {
  std::ifstream file("/proc/self/status");
  std::string line;
  while (std::getline(file, line)) {
    if (line.starts_with("RssAnon:")) return std::stod(line.substr(8)) / 1024.0;
  }
  return -1.0;
}

// Lets the host rest. Runs the event loop without blocking in it, so that each turn can be timed.
double longestTurn(const QQmlEngine& engine) {
  Milliseconds longest{0};
  const auto begin = SteadyClock::now();
  const auto isPreparing = [&] {
    const auto isDone = engine.property(quick::WarmUp::isDone);
    return isDone.isValid() && !isDone.toBool() && SteadyClock::now() < begin + longestRest;
  };
  while (SteadyClock::now() < begin + rest || isPreparing()) {
    const auto start = SteadyClock::now();
    QCoreApplication::processEvents();
    longest = std::max(longest, Milliseconds(SteadyClock::now() - start));
    QThread::usleep(200);
  }
  return longest.count();
}

}  // namespace

int main(int count, char** words) {
  QGuiApplication application(count, words);
  if (count < 2 || count > 3) return 2;
  const bool usesKit = count == 3;
  const auto service = usesKit ? startKit(words[1], words[2]) : nullptr;
  QQmlApplicationEngine engine;
  engine.loadData(usesKit ? R"(
    import QtQuick
    import Orrelo
    Window { width: 390; height: 844; visible: true; OrreloHost { anchors.fill: parent } })"
                          : R"(
    import QtQuick
    Window {
      property alias showsText: loader.active
      width: 390; height: 844; visible: true
      Loader { id: loader; active: false; sourceComponent: Text { text: "Hello" } }
    })");
  auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
  if (window == nullptr) return 1;
  int frames = 0;
  QObject::connect(window, &QQuickWindow::frameSwapped, [&frames] { ++frames; });
  while (frames == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const double turn = longestTurn(engine);
  const double size = memory();

  int framesBefore = frames;
  std::shared_ptr<View> content;
  reactive::Disposable subscription;
  bool isComplete = !usesKit;
  const auto start = SteadyClock::now();
  if (usesKit) {
    const auto host = quick::hostViewController(window);
    Orrelo::showCampaign("first", host);
    const auto screen = std::dynamic_pointer_cast<CampaignViewController>(host->presentedViewController());
    if (!screen) return 1;
    subscription = screen->stateChanges().subscribe([&, screen](reactive::Unit) {
      if (isComplete || !screen->state().content) return;
      isComplete = true;
      framesBefore = frames;
    });
  } else {
    window->setProperty("showsText", true);
  }
  while (!isComplete || frames == framesBefore)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  std::printf("%f %f %f\n", Milliseconds(SteadyClock::now() - start).count(), turn, size);
  subscription.dispose();
}
