#include "inappmessage/InAppMessageViewController.h"

#include "base/Logger.h"
#include "events/UserEventTracker.h"
#include "reactive/Observable.h"
#include "ui/followOnMain.h"
#include "ui/showScreen.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>
#include <orrelo/platform/Clock.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace orrelo {
namespace {

using Cells = std::vector<std::shared_ptr<InAppMessageViewCell>>;

Cells cellsOf(const std::vector<InAppMessage>& messages) {
  Cells cells;
  cells.reserve(messages.size());
  for (const auto& message : messages) {
    cells.push_back(std::make_shared<InAppMessageViewCell>(message, cells.size(), messages.size()));
  }
  return cells;
}

/// Ticks with this period, or fails if it is not positive.
reactive::Observable<std::int64_t> timer(std::int64_t periodMillis) {
  if (periodMillis <= 0) {
    return reactive::error<std::int64_t>(Error("TimerError", "invalidPeriod"));
  }
  constexpr std::chrono::milliseconds longest = std::chrono::hours(24 * 365);
  const auto period = std::min(std::chrono::milliseconds(periodMillis), longest);
  return reactive::interval(period, reactive::MainScheduler::instance());
}

void track(UserEventName name) {
  UserEventTracker::track(
      name, {{UserEventValueKey::campaignEntryPointName, InAppMessageViewController::entryPointName}});
}

}  // namespace

InAppMessageViewController::InAppMessageViewController(std::shared_ptr<InAppMessageViewModel> viewModel,
                                                       std::shared_ptr<CampaignNavigator> campaignNavigator,
                                                       std::vector<InAppMessage> messages,
                                                       std::int64_t swipeIntervalMillis,
                                                       const BrandTheme& theme)
    : inAppMessages(std::move(messages)),
      autoSwipeIntervalMillis(swipeIntervalMillis),
      brandTheme(theme),
      cells(cellsOf(inAppMessages)),
      viewModel_(std::move(viewModel)),
      campaignNavigator_(std::move(campaignNavigator)) {}

void InAppMessageViewController::viewDidLoad() {
  track(UserEventName::campaignEntryPointShow);
  keepPicturesNear();
}

void InAppMessageViewController::keepPicturesNear() {
  const auto current = state.value().currentPage;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto distance = i > current ? i - current : current - i;
    cells[i]->setNear(std::min(distance, cells.size() - distance) <= pictureDistance);
  }
}

void InAppMessageViewController::viewWillAppear(bool) {
  const bool hasPages = inAppMessages.size() > 1;
  state.change([hasPages](State& changed) { changed.showsPageControl = hasPages; });
  if (hasPages) startAutoSwipe();
}

// A second appearance deliberately adds a further timer.
void InAppMessageViewController::startAutoSwipe() {
  const auto self = std::static_pointer_cast<InAppMessageViewController>(shared_from_this());
  followOnMain(
      timer(autoSwipeIntervalMillis), self, disposeBag_,
      [](InAppMessageViewController& screen, std::int64_t) { screen.swipe(); },
      [](InAppMessageViewController&, const Error& error) {
        log(LogLevel::ERROR,
            [&] { return "InAppMessage Auto Swipe Failure: " + error.localizedDescription(); });
      });
}

void InAppMessageViewController::swipe() {
  if (isPressed_ || hasReaderFocus_) return;
  scrollTo((state.value().currentPage + 1) % cells.size());
}

void InAppMessageViewController::scrollTo(std::size_t item) {
  target_ = item;
  const bool animated = !Platform::current().application->prefersReducedMotion();
  scroll.set({item, animated, scroll.value().number + 1});
}

Rect InAppMessageViewController::containerFrame(Size screen, double roomAbove, double roomBelow) {
  const double side = std::max(0.0, std::min(screen.width, screen.height - roomAbove - roomBelow));
  const double lowest = std::max(roomAbove, screen.height - roomBelow - side);
  return {(screen.width - side) / 2, std::clamp((screen.height - side) / 2, roomAbove, lowest), side, side};
}

bool InAppMessageViewController::showsDots(std::size_t count, double width) {
  return static_cast<double>(count) * (dotSize + dotSpacing) - dotSpacing <= width;
}

void InAppMessageViewController::layOut(Size screen, double roomAbove, double roomBelow) {
  const auto frame = containerFrame(screen, roomAbove, roomBelow);
  state.change([&frame](State& changed) { changed.container = frame; });
}

void InAppMessageViewController::didScroll(double contentOffset, double pageWidth) {
  const double page = std::round(contentOffset / pageWidth);
  if (!std::isfinite(page)) return;
  const auto current = static_cast<std::size_t>(std::clamp(page, 0.0, static_cast<double>(cells.size() - 1)));
  state.change([current](State& changed) { changed.currentPage = current; });
  keepPicturesNear();
}

void InAppMessageViewController::turn(int count) {
  const auto from = static_cast<std::int64_t>(target_.value_or(state.value().currentPage));
  const auto last = static_cast<std::int64_t>(cells.size()) - 1;
  const auto to = std::clamp(from + count, std::int64_t{0}, last);
  if (to != from) scrollTo(static_cast<std::size_t>(to));
}

void InAppMessageViewController::turnWheel(double dx, double dy, bool isMomentum) {
  if (isMomentum) return;
  const double notches = -(std::abs(dx) > std::abs(dy) ? dx : dy) / 120.0;
  const auto now = Platform::current().clock->steady();
  if (now < wheelHeldUntil_) {
    // Some systems do not tell the momentum from the movement, which may last longer than the fixed time.
    if (std::abs(notches) < 1.0)
      wheelHeldUntil_ = std::max<std::chrono::microseconds>(wheelHeldUntil_, now + wheelPause);
    return;
  }
  wheel_ = notches * wheel_ < 0 ? notches : wheel_ + notches;
  if (std::abs(wheel_) < 1.0) return;
  wheelHeldUntil_ = now + wheelHold;
  turn(std::exchange(wheel_, 0.0) > 0 ? 1 : -1);
}

void InAppMessageViewController::didSelect(std::size_t item) {
  if (item >= inAppMessages.size()) return;
  const auto presenting = presentingViewController();
  if (!presenting) return log(LogLevel::ERROR, "InAppMessage: Cannot find presentingViewController");
  const auto keep = shared_from_this();
  dismiss(true);
  const auto factory = campaignNavigator_->campaignViewControllerFactory();
  // A presenting screen is always an outermost container; the stack to push onto is within it.
  showScreen(factory->make(inAppMessages[item].campaignId), presenting->topmost());
  track(UserEventName::campaignEntryPointClick);
}

void InAppMessageViewController::skipToday() {
  const auto keep = shared_from_this();
  viewModel_->skipTimeCheckService->recordSkipToday();
  dismiss(true);
}

}  // namespace orrelo
