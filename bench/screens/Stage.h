#pragma once

#include "Targets.h"
#include "campaign/CampaignViewController.h"
#include "quick/Service.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTimer>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace orrelo::bench {

/// The size of every window here, so that figures are comparable.
constexpr auto windowSize = "width: 390; height: 844";

/// Runs the event loop, and rests with it, until `holds`.
template <class Holds>
void runUntil(const Holds& holds) {
  QDeadlineTimer deadline(10'000);
  QTimer wake;  // for what happens on other threads
  wake.start(20);
  while (!holds()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // else only a running loop does it
    if (deadline.hasExpired()) std::abort();
  }
}

/// A host's window over the kit, whose service is in this process.
class Stage {
 public:
  /// The one of the process.
  static Stage& shared();

  /// Milliseconds from the call to the first frame with the page on it.
  double open(const std::string& id);
  /// Milliseconds from `act` to the first frame with the page that comes of it.
  template <class Act>
  double change(const Act& act) {
    const auto before = content();
    const auto start = std::chrono::steady_clock::now();
    act();
    return untilFrameWithOtherThan(before, start);
  }
  /// Until the screen is gone, and with the next frame what it has drawn with.
  void close();

  /// The page of the screen that is open.
  std::shared_ptr<View> content() const { return screen()->state().content; }
  QQuickWindow& window() const { return *window_; }
  test::Service& service() const { return *service_; }

 private:
  Stage();
  std::shared_ptr<ViewController> host() const;
  std::shared_ptr<CampaignViewController> screen() const;
  double untilFrameWithOtherThan(const std::shared_ptr<View>& content,
                                 std::chrono::steady_clock::time_point start);

  test::TemporaryFolder folder_;
  std::shared_ptr<test::Service> service_;
  QQmlApplicationEngine engine_;
  QQuickWindow* window_ = nullptr;
  std::size_t frames_ = 0;
};

}  // namespace orrelo::bench
