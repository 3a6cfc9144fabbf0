#pragma once

#include <orrelo/platform/Clock.h>
#include <orrelo/platform/DisplayLink.h>

#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace orrelo::quick {

/// Ticks by the clock, whatever frames the windows draw. A late timer gives all ticks that fell due, unless
/// more than `longestStall` has passed; then the ticks start anew. The timer runs only while a window of the
/// application is exposed and there is a registration. Main thread only.
class QtDisplayLink final : public QObject, public DisplayLink {
 public:
  static constexpr std::chrono::seconds longestStall{1};

  /// `refreshRate` returns the main screen's refresh rate in Hz.
  explicit QtDisplayLink(std::shared_ptr<const Clock> clock,
                         std::function<double()> refreshRate = refreshRateOfMainScreen);
  /// Zero without a screen.
  static double refreshRateOfMainScreen();

  int ticksPerSecond() const override;
  [[nodiscard]] Registration start(Tick tick) override;

  /// Calls the ticks that are due and sets the timer, which calls it again, to the next one.
  void callDue();
  bool isRunning() const { return timer_.isActive(); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void update();
  void startAnew();
  void arm();
  void callAll();

  const std::shared_ptr<const Clock> clock_;
  const std::function<double()> refreshRate_;
  QTimer timer_;
  std::vector<std::weak_ptr<const Tick>> ticks_;
  /// True while there is a registration and windows are watched.
  bool isWatching_ = false;
  /// True while a window is exposed, too.
  bool isTicking_ = false;
  /// Fixed while there is a registration, since an animation counts in ticks of the rate it began with.
  int rate_ = 0;
  /// The moment from which ticks are counted, and the number of ticks given since then.
  std::chrono::microseconds beginning_{0};
  std::int64_t given_ = 0;
};

}  // namespace orrelo::quick
