#include "rewards/RewardViewController.h"

#include "events/UserEventTracker.h"
#include "model/UserManager.h"
#include "reactive/Observable.h"
#include "ui/followOnMain.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orrelo {
namespace {

constexpr Color toastColor{0.0, 0.0, 0.0, 1.0};

void setHidden(IconRectangleButton& button, bool isHidden) {
  button.state.change([isHidden](auto& state) { state.isHidden = isHidden; });
}

void trackClick(const std::string& item) {
  UserEventTracker::track(UserEventName::rewardTabItemClick, {{UserEventValueKey::rewardTabItemName, item}});
}

}  // namespace

RewardViewController::RewardViewController(std::shared_ptr<RewardViewModel> viewModel,
                                           std::shared_ptr<PageRouter> pageRouter)
    : viewModel_(std::move(viewModel)), pageRouter_(std::move(pageRouter)) {
  pointView->setHidden(true);
  setHidden(*externalPointButton, true);
}

std::shared_ptr<RewardViewController> RewardViewController::create(std::shared_ptr<RewardViewModel> viewModel,
                                                                   std::shared_ptr<PageRouter> pageRouter) {
  return std::shared_ptr<RewardViewController>(
      new RewardViewController(std::move(viewModel), std::move(pageRouter)));
}

void RewardViewController::viewDidLoad() {
  ViewController::viewDidLoad();
  if (!viewModel_) return;
  const auto users = trigger_.asObservable().map([](reactive::Unit) { return currentUserId(); });
  followOnMain(viewModel_->transform({users.asInfallible(std::nullopt)}),
               std::static_pointer_cast<RewardViewController>(shared_from_this()), disposeBag_,
               &RewardViewController::show, [](RewardViewController& self, const Error&) { self.fail(); });
}

void RewardViewController::viewWillAppear(bool animated) {
  ViewController::viewWillAppear(animated);
  refresh();
}

void RewardViewController::refresh() {
  trigger_.onNext({});
}

void RewardViewController::show(const RewardViewModel::Output& output) {
  const auto owner = delegate.lock();
  if (std::holds_alternative<RewardViewModel::Loading>(output)) {
    if (owner) owner->startActivityIndicator();
  } else if (const auto* const loaded = std::get_if<RewardViewModel::Loaded>(&output)) {
    if (owner) owner->stopActivityIndicator();
    render(loaded->reward, loaded->brandTheme);
  } else {
    fail();
  }
}

void RewardViewController::render(const Reward& reward, const BrandTheme& brandTheme) {
  ticketButton->setBadge(reward.ticketCount, brandTheme.primary);
  setHidden(*ticketButton, false);
  pointView->setHidden(!reward.point);
  gifticonButton->setBadge(reward.gifticonCount, brandTheme.primary);
  setHidden(*gifticonButton, !reward.gifticonCount);
  setHidden(*externalPointButton, !reward.externalPointUrl);
  if (reward.point) {
    pointView->update(*reward.point);
    UserEventTracker::track(UserEventName::pointViewShow);
  }
  const std::array buttons{gifticonButton, externalPointButton, ticketButton};
  const auto visibleCount = std::count_if(buttons.begin(), buttons.end(),
                                          [](const auto& button) { return !button->state.value().isHidden; });
  state_.set({.visibleButtonCount = static_cast<int>(visibleCount)});
  if (!state().isHorizontalRewardStackHidden()) UserEventTracker::track(UserEventName::rewardTabShow);
}

void RewardViewController::fail() {
  const auto owner = delegate.lock();
  if (!owner) return;
  owner->stopActivityIndicator();
  owner->showToast("리워드 정보를 가져오는데 실패했습니다.", toastColor);
}

void RewardViewController::onClickPointView() {
  route(Page::Fixed::pointRedemptionHistory);
  UserEventTracker::track(UserEventName::pointViewClick);
}

void RewardViewController::onClickGifticonButton() {
  route(Page::Fixed::gifticon);
  trackClick("gifticon");
}

void RewardViewController::onClickExternalPointButton() {
  route(Page::Fixed::externalPointExchange);
  trackClick("naverpay");
}

void RewardViewController::route(Page::Fixed page) {
  if (pageRouter_) pageRouter_->route(shared_from_this(), page);
}

}  // namespace orrelo
