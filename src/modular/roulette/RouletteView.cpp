#include "modular/roulette/RouletteView.h"

#include "base/Logger.h"
#include "reactive/Creating.h"
#include "ui/Geometry.h"
#include "ui/followOnMain.h"

#include <orrelo/Platform.h>

#include <utility>

namespace orrelo {
namespace {

std::string spoken(const RouletteItemModel& item) {
  return item.title.empty() || item.body.empty() ? item.title + item.body : item.title + " " + item.body;
}

}  // namespace

double RouletteView::finalAngle(std::int64_t index, std::size_t count) {
  constexpr double pinAngle = 270.0;
  const double sectorSize = 360.0 / static_cast<double>(count);
  const double centre = sectorSize * static_cast<double>(index) + sectorSize * 0.5;
  return centre <= pinAngle ? pinAngle - centre : (360.0 - centre) + pinAngle;
}

void RouletteView::configure(std::vector<RouletteItemModel> items) {
  items_ = std::move(items);
}

void RouletteView::spin(std::int64_t endIndex, const std::string& spinDidEndActionUrl) {
  if (items_.empty()) return;
  willEndIndex = endIndex;
  spinWheelDidEndActionUrl = spinDidEndActionUrl;
  whenWheelIsPainted(
      [](RouletteView& self) { self.startSpin(finalAngle(*self.willEndIndex, self.items_.size())); });
}

void RouletteView::showResult(std::int64_t index) {
  if (items_.empty()) return;
  // Set before the wheel is painted, so that it never appears at the initial rotation.
  state.change([&](State& changed) { changed.rotation = radians(finalAngle(index, items_.size())); });
  // Set after the wheel is painted, so that assistive technology announces it as a change.
  whenWheelIsPainted([outcome = outcomeOf(index)](RouletteView& self) {
    self.state.change([&](State& changed) { changed.outcome = outcome; });
  });
}

void RouletteView::setEnabled(bool isEnabled) {
  state.change([isEnabled](State& changed) { changed.isEnabled = isEnabled; });
}

RouletteDrawing RouletteView::drawing() const {
  return RouletteDrawing::of(items_, {primaryColor, secondaryColor, state.value().isEnabled}, {side, side});
}

std::string RouletteView::accessibilityLabel() const {
  const auto outcome = state.value().outcome;
  std::string label = outcome.empty() ? "룰렛" : outcome + ", 룰렛";
  std::string_view separator = ", 경품: ";
  for (const auto& item : items_) {
    if (const auto prize = spoken(item); !prize.empty()) {
      label += std::string(std::exchange(separator, ", ")) + prize;
    }
  }
  return label;
}

void RouletteView::wheelDidAppear() {
  if (std::exchange(isWheelPainted_, true)) return;
  const auto self = std::static_pointer_cast<RouletteView>(shared_from_this());
  persistentHelper_.emplace(self, *Platform::current().application);
  isAppendedWheelLayer_.onNext({});
  isAppendedWheelLayer_.onCompleted();
}

void RouletteView::wheelDidFail(const Error& error) {
  isAppendedWheelLayer_.onError(error);
}

void RouletteView::animationDidStop(bool finished) {
  const auto spin = state.value().spin;
  if (finished && spin) finishSpin(spin->to);
}

void RouletteView::whenWheelIsPainted(std::function<void(RouletteView&)> task) {
  const auto signal =
      isWheelPainted_ ? reactive::just(reactive::Unit()) : isAppendedWheelLayer_.asObservable();
  followOnMain(
      signal, std::static_pointer_cast<RouletteView>(shared_from_this()), disposeBag_,
      [task = std::move(task)](RouletteView& self, reactive::Unit) { task(self); },
      [](RouletteView&, const Error& error) {
        log(LogLevel::ERROR, "Start Roulette Animation Failure: " + error.localizedDescription());
      });
}

void RouletteView::startSpin(double angle) {
  constexpr double wholeTurns = 8 * 360.0;
  const double rotation = radians(angle + wholeTurns);
  if (Platform::current().application->prefersReducedMotion()) return finishSpin(rotation);
  state.change([rotation](State& changed) {
    changed.spin = Animation{.from = 0.0, .to = rotation, .duration = spinDuration};
  });
}

void RouletteView::finishSpin(double rotation) {
  state.change([&](State& changed) {
    changed.rotation = rotation;
    changed.spin.reset();
    changed.outcome = outcomeOf(*willEndIndex);
  });
  const auto actionUrl = std::exchange(spinWheelDidEndActionUrl, std::nullopt);
  const auto listener = delegate.lock();
  if (listener && actionUrl) listener->spinDidEnd(*actionUrl);
}

// An index outside the sectors wraps around, like its angle.
std::string RouletteView::outcomeOf(std::int64_t index) const {
  const auto count = static_cast<std::int64_t>(items_.size());
  const auto prize = spoken(items_[static_cast<std::size_t>((index % count + count) % count)]);
  return prize.empty() ? "" : "결과: " + prize;
}

}  // namespace orrelo
