#pragma once

#include "Targets.h"
#include "campaign/CampaignViewController.h"
#include "quick/Service.h"
#include "support/TemporaryFolder.h"
#include "support/Twins.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::bench {

/// The size of every window here, so that figures are comparable.
constexpr auto windowSize = "width: 390; height: 844";

/// Runs the event loop, which sleeps between events, until `holds` returns true. Aborts after 10 seconds.
template <class Holds>
void runUntil(const Holds& holds) {
  QDeadlineTimer deadline(10'000);
  QTimer wake;  // so that changes by other threads are noticed
  wake.start(20);
  while (!holds()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // processEvents leaves these out
    if (deadline.hasExpired()) std::abort();
  }
}

/// A PNG file of a picture with many colours.
std::string pngFile(int width, int height);

/// A host's window and the kit, with a service in this process.
class Stage {
 public:
  /// The only instance, which is never destroyed.
  static Stage& shared();

  /// Opens a campaign. Returns the milliseconds from the call to the first frame with its page.
  double open(const std::string& id);
  /// Calls `act`, which replaces the page. Returns the milliseconds to the first frame with the new page.
  template <class Act>
  double change(const Act& act) {
    const auto before = content();
    const auto start = std::chrono::steady_clock::now();
    act();
    return waitForNewContent(before, start);
  }
  /// Waits for the first frame after `holds` has become true, which one of `changes` signals.
  void waitForFrame(const std::vector<reactive::Observable<reactive::Unit>>& changes,
                    const std::function<bool()>& holds);
  /// Closes the screen. Waits until it is destroyed and the next frame has freed its graphics resources.
  void close();

  /// Hides the window, which ends what the kit keeps only in the foreground, and shows it again.
  void passThroughBackground();

  /// The page of the screen that is open; null if there is none.
  std::shared_ptr<View> content() const { return screen() ? screen()->state().content : nullptr; }
  QQuickWindow& window() const { return *window_; }
  /// The host's screen, from which the kit's screens are presented.
  std::shared_ptr<ViewController> host() const;
  test::Service& service() const { return *service_; }
  /// The display, by whose ticks animated images play.
  test::ManualDisplayLink& display() const { return *display_; }
  /// The number of frames that the window has shown.
  std::size_t frames() const { return frames_; }
  /// Blocks until the worker pool has nothing to do.
  void waitForWorkers();

 private:
  class CountedWorkers;

  Stage();
  std::shared_ptr<CampaignViewController> screen() const;
  /// Waits for the first frame with content other than `content`. Returns the milliseconds since `start`.
  double waitForNewContent(const std::shared_ptr<View>& content, std::chrono::steady_clock::time_point start);

  test::TemporaryFolder folder_;
  std::shared_ptr<test::Service> service_;
  const std::shared_ptr<test::ManualDisplayLink> display_ = std::make_shared<test::ManualDisplayLink>();
  std::shared_ptr<CountedWorkers> workers_;
  QQmlApplicationEngine engine_;
  QQuickWindow* window_ = nullptr;
  std::size_t frames_ = 0;
};

}  // namespace orrelo::bench
