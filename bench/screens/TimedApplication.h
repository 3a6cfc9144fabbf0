#pragma once

#include <QGuiApplication>
#include <chrono>

namespace orrelo::bench {

/// An application that measures how long each task of its event loop keeps the main thread: one delivery of
/// an event, with everything that it calls.
class TimedApplication final : public QGuiApplication {
 public:
  TimedApplication(int& argumentCount, char** arguments);

  static TimedApplication& shared() { return static_cast<TimedApplication&>(*QGuiApplication::instance()); }

  bool notify(QObject* receiver, QEvent* event) override;

  /// The longest task, in milliseconds, since the last call.
  double takeLongestTask();

 private:
  int depth_ = 0;
  std::chrono::steady_clock::duration longest_{};
};

}  // namespace orrelo::bench
