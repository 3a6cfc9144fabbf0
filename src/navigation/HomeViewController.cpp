#include "navigation/HomeViewController.h"

#include "events/UserEventTracker.h"
#include "navigation/PageRouterImpl.h"
#include "ui/RunningKit.h"

namespace orrelo {

// This text deliberately differs from the text that `setText` shows for an error.
HomeViewController::HomeViewController()
    : errorView(std::make_shared<ErrorView>("잠시 후 다시 시도해주세요")) {
  errorView->setHidden(true);
}

std::shared_ptr<HomeViewController> HomeViewController::create() {
  return std::shared_ptr<HomeViewController>(new HomeViewController);
}

void HomeViewController::viewDidLoad() {
  ORLUIViewController::viewDidLoad();
  setTitle("이벤트");
  const auto self = std::static_pointer_cast<HomeViewController>(shared_from_this());
  const auto kit = RunningKit::current();
  errorView->setHidden(kit != nullptr);
  rewardViewController_ =
      RewardViewController::create(kit ? kit->rewardViewModel : nullptr, std::make_shared<PageRouterImpl>());
  rewardViewController_->delegate = self;
  addChild(rewardViewController_);
  campaignListViewController_ = CampaignListViewController::create(
      kit ? kit->campaignListViewModel : nullptr,
      kit ? kit->campaignNavigator->campaignViewControllerFactory() : nullptr);
  campaignListViewController_->delegate = self;
  addChild(campaignListViewController_);
  UserEventTracker::track(UserEventName::visit, {{UserEventValueKey::pageName, "home"}});
}

void HomeViewController::refresh() {
  if (!isViewLoaded()) return;
  rewardViewController_->refresh();
  campaignListViewController_->refresh();
}

void HomeViewController::showToast(const std::string& message, const Color& color) {
  toastLayer->showToast(message, color);
}

void HomeViewController::showListError(const Error& error) {
  errorView->setText(error);
  errorView->setHidden(false);
}

void HomeViewController::hideListError() {
  errorView->setHidden(true);
}

void HomeViewController::setLoading(bool isLoading) {
  state_.change([isLoading](State& state) { state.isLoading = isLoading; });
}

}  // namespace orrelo
