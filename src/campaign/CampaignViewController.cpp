#include "campaign/CampaignViewController.h"

#include "campaign/CampaignKinds.h"
#include "model/UserManager.h"
#include "ui/followOnMain.h"

#include <utility>

namespace orrelo {

CampaignViewController::CampaignViewController(std::shared_ptr<CampaignViewModel> viewModel,
                                               std::optional<std::string> campaignId,
                                               std::optional<ORLCampaignType> campaignType)
    // This text deliberately differs from the text that `setText` shows for an error.
    : errorView(std::make_shared<ErrorView>("잠시 후 다시 시도해주세요")),
      viewModel_(std::move(viewModel)),
      campaignId_(std::move(campaignId)),
      campaignType_(campaignType) {
  errorView->setHidden(true);
}

std::shared_ptr<CampaignViewController> CampaignViewController::create(
    std::shared_ptr<CampaignViewModel> viewModel, std::string id) {
  return std::shared_ptr<CampaignViewController>(
      new CampaignViewController(std::move(viewModel), std::move(id), std::nullopt));
}

std::shared_ptr<CampaignViewController> CampaignViewController::create(
    std::shared_ptr<CampaignViewModel> viewModel, ORLCampaignType type) {
  return std::shared_ptr<CampaignViewController>(
      new CampaignViewController(std::move(viewModel), std::nullopt, type));
}

void CampaignViewController::viewDidLoad() {
  ORLUIViewController::viewDidLoad();
  const auto self = std::static_pointer_cast<CampaignViewController>(shared_from_this());
  const auto output =
      viewModel_->transform(loadTriggerByCampaignId_.asObservable(),
                            loadTriggerByCampaignType_.asObservable(), participateTrigger_.asObservable());
  followOnMain(output.campaign, self, disposeBag_, &CampaignViewController::render,
               &CampaignViewController::fail);
  followOnMain(output.isLoading, self, disposeBag_, &CampaignViewController::setLoading,
               &CampaignViewController::fail);
}

void CampaignViewController::viewWillAppear(bool animated) {
  ORLUIViewController::viewWillAppear(animated);
  reload();
}

void CampaignViewController::reload() {
  if (campaignId_) {
    loadTriggerByCampaignId_.onNext({*campaignId_, currentUserId()});
  } else if (campaignType_) {
    loadTriggerByCampaignType_.onNext({*campaignType_, currentUserId()});
  }
}

void CampaignViewController::participate(const std::string& actionUrl) {
  participateTrigger_.onNext({actionUrl, currentUserId()});
}

void CampaignViewController::route(const Page& page) {
  if (pageRouter) pageRouter->route(shared_from_this(), page);
}

void CampaignViewController::render(const BrandedCampaign& element) {
  const auto& campaign = element.campaign;
  errorView->setHidden(true);
  viewModel_->visit(campaign);
  if (campaign.title) {
    setTitle(campaign.title);
  } else {
    collapseTopBar();
  }
  const auto self = std::static_pointer_cast<CampaignViewController>(shared_from_this());
  kindOf(campaign.type).show(element, self);
}

void CampaignViewController::setLoading(bool isLoading) {
  state_.change([isLoading](State& state) { state.isLoading = isLoading; });
}

void CampaignViewController::showError(OrreloError reason) {
  show(nullptr);
  fail(makeError(reason));
}

void CampaignViewController::show(const std::shared_ptr<View>& content) {
  state_.change([&](State& state) { state.content = content; });
}

bool CampaignViewController::isAttached() const {
  // The root screen of a window has no parent and is not visible while another screen covers it.
  return isVisible() || parent() || presentingViewController() || presentedViewController();
}

std::shared_ptr<ORLUIViewController> CampaignViewController::viewController() {
  return std::static_pointer_cast<ORLUIViewController>(shared_from_this());
}

void CampaignViewController::fail(const Error& error) {
  setTitle("이벤트");
  errorView->setText(error);
  errorView->setHidden(false);
}

}  // namespace orrelo
