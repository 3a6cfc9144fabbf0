#include "quick/platform/QtDisplayLink.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace orrelo::quick {
namespace {

using std::chrono::microseconds;

constexpr std::int64_t second = microseconds(std::chrono::seconds(1)).count();

// Embedded windows count too: a window may be embedded in one of another process.
bool isAnyWindowExposed() {
  const auto windows = QGuiApplication::allWindows();
  return std::any_of(windows.begin(), windows.end(),
                     [](const QWindow* window) { return window->isExposed(); });
}

}  // namespace

QtDisplayLink::QtDisplayLink(std::shared_ptr<const Clock> clock, std::function<double()> refreshRate)
    : clock_(std::move(clock)), refreshRate_(std::move(refreshRate)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] { callDue(); });
}

double QtDisplayLink::refreshRateOfMainScreen() {
  const auto* const screen = QGuiApplication::primaryScreen();
  return screen != nullptr ? screen->refreshRate() : 0;
}

int QtDisplayLink::ticksPerSecond() const {
  const bool isFollowed =
      std::any_of(ticks_.begin(), ticks_.end(), [](const auto& tick) { return !tick.expired(); });
  if (isFollowed) return rate_;
  return refreshRate_() == 120.0 ? 120 : 60;
}

DisplayLink::Registration QtDisplayLink::start(Tick tick) {
  const int rate = ticksPerSecond();
  const bool isNewRate = std::exchange(rate_, rate) != rate;
  auto registration = std::make_shared<const Tick>(std::move(tick));
  ticks_.push_back(registration);
  // The link may still be ticking for the former registrations.
  if (isTicking_ && isNewRate) startAnew();
  update();
  return registration;
}

void QtDisplayLink::update() {
  std::erase_if(ticks_, [](const auto& tick) { return tick.expired(); });
  const bool isNeeded = !ticks_.empty();
  if (isNeeded != std::exchange(isWatching_, isNeeded)) {
    if (isNeeded) {
      qGuiApp->installEventFilter(this);
    } else {
      qGuiApp->removeEventFilter(this);
    }
  }
  const bool wasTicking = std::exchange(isTicking_, isNeeded && isAnyWindowExposed());
  if (!isTicking_) {
    timer_.stop();
  } else if (!wasTicking) {
    startAnew();
  }
}

void QtDisplayLink::startAnew() {
  beginning_ = clock_->steady();
  given_ = 0;
  arm();
}

void QtDisplayLink::arm() {
  // Computed from the beginning, so that rounding does not add up.
  const auto next = beginning_ + microseconds((given_ + 1) * second / rate_);
  const auto left = std::max(next - clock_->steady(), microseconds(0));
  timer_.start(std::chrono::ceil<std::chrono::milliseconds>(left));
}

void QtDisplayLink::callDue() {
  const auto beginning = beginning_;
  const auto due = (clock_->steady() - beginning).count() * rate_ / second;
  if (due - given_ > longestStall.count() * rate_) return startAnew();
  while (isTicking_ && beginning_ == beginning && given_ < due) {
    ++given_;
    callAll();
  }
  update();
  if (isTicking_) arm();
}

void QtDisplayLink::callAll() {
  const auto ticks = ticks_;  // a tick may add a registration
  for (const auto& each : ticks) {
    if (const auto tick = each.lock()) (*tick)();
  }
}

bool QtDisplayLink::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (watched->isWindowType() && (type == QEvent::Expose || type == QEvent::Hide || type == QEvent::Show)) {
    // A hidden window stays exposed until its event has been delivered.
    QMetaObject::invokeMethod(
        this, [this] { update(); }, Qt::QueuedConnection);
  }
  return false;
}

}  // namespace orrelo::quick
