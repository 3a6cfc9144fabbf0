#include "campaign/CampaignViewController.h"

#include "base/Logger.h"
#include "campaign/attendance/AttendanceCampaignView.h"
#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "campaign/result/CampaignResultView.h"
#include "campaign/stamp/StampCampaignView.h"
#include "campaign/update/InduceUpdateView.h"
#include "model/Delegates.h"
#include "model/UserManager.h"
#include "reactive/Observable.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/PopUpDialogViewController.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace orrelo {

CampaignViewController::CampaignViewController(std::shared_ptr<CampaignViewModel> model,
                                               std::optional<std::string> id,
                                               std::optional<ORLCampaignType> type)
    // Deliberately not spelled as the text that an error gives it.
    : errorView(std::make_shared<ErrorView>("잠시 후 다시 시도해주세요")),
      viewModel(std::move(model)),
      campaignId(std::move(id)),
      campaignType(type) {
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
  const std::weak_ptr<CampaignViewController> weak =
      std::static_pointer_cast<CampaignViewController>(shared_from_this());
  const auto fail = [weak](const Error& error) {
    if (const auto self = weak.lock()) self->fail(error);
  };
  const auto background =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive);
  const auto main = reactive::MainScheduler::instance();
  const auto output =
      viewModel->transform(loadTriggerByCampaignId.asObservable(), loadTriggerByCampaignType.asObservable(),
                           participateTrigger.asObservable());
  output.campaign.subscribeOn(background)
      .observeOn(main)
      .subscribe({.onNext =
                      [weak](const BrandedCampaign& element) {
                        if (const auto self = weak.lock()) self->render(element);
                      },
                  .onError = fail})
      .disposedBy(disposeBag);
  output.isLoading.subscribeOn(background)
      .observeOn(main)
      .subscribe({.onNext =
                      [weak](bool isLoading) {
                        const auto self = weak.lock();
                        if (self) self->state_.change([&](State& state) { state.isLoading = isLoading; });
                      },
                  .onError = fail})
      .disposedBy(disposeBag);
}

void CampaignViewController::viewWillAppear(bool animated) {
  ORLUIViewController::viewWillAppear(animated);
  reload();
}

void CampaignViewController::reload() {
  if (campaignId) {
    loadTriggerByCampaignId.onNext({*campaignId, currentUserId()});
  } else if (campaignType) {
    loadTriggerByCampaignType.onNext({*campaignType, currentUserId()});
  }
}

void CampaignViewController::participate(const std::string& actionUrl) {
  participateTrigger.onNext({actionUrl, currentUserId()});
}

void CampaignViewController::route(const Page& page) {
  if (pageRouter) pageRouter->route(shared_from_this(), page);
}

void CampaignViewController::render(const BrandedCampaign& element) {
  const auto& campaign = element.campaign;
  errorView->setHidden(true);
  viewModel->visit(campaign);
  if (campaign.title) {
    setTitle(campaign.title);
  } else {
    collapseTopBar();
  }
  std::visit(
      [&](const auto& kind) {
        using Kind = std::decay_t<decltype(kind)>;
        if constexpr (std::is_same_v<Kind, CampaignResult>) {
          render(kind, campaign.id);
        } else if constexpr (std::is_same_v<Kind, InduceUpdateCampaign>) {
          show(std::make_shared<InduceUpdateView>(kind.appStoreUrl, element.primary, toastLayer));
        } else if constexpr (std::is_same_v<Kind, DeprecatedCampaign>) {
          showNothing(OrreloError::deprecatedCampaign);
        } else if constexpr (std::is_same_v<Kind, UnknownCampaign> ||
                             std::is_same_v<Kind, ReferralCampaign>) {
          showNothing(OrreloError::unknownCampaign);
        } else {
          render(kind);
        }
      },
      campaign.type);
}

void CampaignViewController::showNothing(OrreloError reason) {
  show(nullptr);
  fail(makeError(reason));
}

void CampaignViewController::show(const std::shared_ptr<View>& content) {
  state_.change([&](State& state) { state.content = content; });
}

void CampaignViewController::render(const AttendanceCampaign& attendance) {
  const auto page = std::make_shared<AttendanceCampaignView>(attendance);
  page->actionView->delegate = std::static_pointer_cast<CampaignViewController>(shared_from_this());
  show(page);
  if (const auto& reward = attendance.rewardMessage; reward && hasPlace()) {
    const CampaignRewardViewController::Content content{reward->title, reward->message, reward->buttonText,
                                                        attendance.calendar.primaryColor};
    root()->topmost()->present(std::make_shared<CampaignRewardViewController>(content), false);
  }
}

void CampaignViewController::render(const StampCampaign& stamp) {
  show(std::make_shared<StampCampaignView>(stamp));
}

void CampaignViewController::render(const OptInMarketingCampaign& optIn) {
  const auto page = OptInMarketingCampaignView::create(optIn);
  page->onMoveButtonTapped = [weak = weak_from_this()] {
    const auto self = weak.lock();
    if (!self) return;
    log(LogLevel::DEBUG, "(ORLOptInMarketingCampaignDelegate) onMoveButtonTapped:in");
    if (const auto host = optInMarketingCampaignDelegate()) host->onMoveButtonTapped(self);
  };
  show(page);
}

void CampaignViewController::render(const CampaignResult& result, const std::string& id) {
  show(std::make_shared<CampaignResultView>(result));
  if (result.popUpDialog && hasPlace()) showOnce(*result.popUpDialog, id);
}

void CampaignViewController::render(const ModularCampaign& modular) {
  const auto page = ModularCampaignView::create(modular);
  page->delegate = std::static_pointer_cast<CampaignViewController>(shared_from_this());
  show(page);
  if (hasPlace()) page->showDialogs(*this);
}

void CampaignViewController::showOnce(const CampaignPopUpDialog& dialog, const std::string& id) {
  const auto states = viewModel->fetchCampaignStateUseCase().fetch();
  const auto known = std::find_if(states.begin(), states.end(),
                                  [&](const CampaignState& state) { return state.campaignId == id; });
  if (known != states.end() && known->popUpDialogIsShown) return;
  const PopUpDialogViewController::Content content{dialog.title, dialog.label, dialog.imageUrl,
                                                   dialog.buttonText};
  const bool isShown =
      present(std::make_shared<PopUpDialogViewController>("campaign_result_pop_up_dialog", content), false);
  // At once, and not when it is closed: whatever ends the dialog, the user has seen it.
  if (isShown) viewModel->saveCampaignStateUseCase().save(id, true);
}

bool CampaignViewController::hasPlace() const {
  // A window's root screen keeps its place while another screen covers it.
  return isVisible() || parent() || presentingViewController() || presentedViewController();
}

void CampaignViewController::fail(const Error& error) {
  setTitle("이벤트");
  errorView->setText(error);
  errorView->setHidden(false);
}

}  // namespace orrelo
