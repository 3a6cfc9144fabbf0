#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>

namespace orrelo::quick {

/// Runs short steps while the host rests: one step in a turn of the event loop, with pauses between them, and
/// none while a window of the application draws frames or takes input. GUI thread.
class IdleWork final : public QObject {
 public:
  /// Takes at most 2 ms. It may add steps and destroy the IdleWork.
  using Step = std::function<void()>;

  /// The time without a frame and without input after which the host rests.
  static constexpr std::chrono::milliseconds rest{50};
  /// The time between two steps, in which the host's own events are handled.
  static constexpr std::chrono::milliseconds pause{2};

  IdleWork();

  void add(Step step);
  /// Runs the next step if the host has rested since the last call. The timer calls it.
  void turn();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::deque<Step> steps_;
  QTimer timer_;
  bool wasBusy_ = true;
};

}  // namespace orrelo::quick
