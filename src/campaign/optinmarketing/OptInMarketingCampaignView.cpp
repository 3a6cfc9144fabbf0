#include "campaign/optinmarketing/OptInMarketingCampaignView.h"

#include "base/Logger.h"
#include "campaign/CampaignScreen.h"
#include "events/UserEventTracker.h"
#include "model/Delegates.h"

#include <variant>

namespace orrelo {

OptInMarketingCampaignView::OptInMarketingCampaignView(const OptInMarketingCampaign& campaign)
    : moveButton{campaign.buttonText, campaign.buttonEnabled, !campaign.buttonVisibility, campaign.color},
      noticeView(std::make_shared<CampaignNoticeView>(campaign.notice.messages)),
      errorView(
          std::make_shared<ErrorView>("이미지를 불러오는데 실패했습니다.\n잠시 후 다시 시도해 주세요.")) {
  errorView->setHidden(true);
}

std::shared_ptr<OptInMarketingCampaignView> OptInMarketingCampaignView::create(
    const OptInMarketingCampaign& campaign) {
  std::shared_ptr<OptInMarketingCampaignView> view(new OptInMarketingCampaignView(campaign));
  view->imageView->load(campaign.imageUrl, [weak = std::weak_ptr(view->errorView)](const auto& result) {
    const auto error = weak.lock();
    if (error && std::holds_alternative<Error>(result)) error->setHidden(false);
  });
  return view;
}

void OptInMarketingCampaignView::passTapsToHost(const std::shared_ptr<CampaignScreen>& screen) {
  onMoveButtonTapped = [weak = std::weak_ptr(screen)] {
    const auto shown = weak.lock();
    if (!shown) return;
    log(LogLevel::DEBUG, "(ORLOptInMarketingCampaignDelegate) onMoveButtonTapped:in");
    if (const auto host = calledOptInMarketingCampaignDelegate())
      host->onMoveButtonTapped(shown->viewController());
  };
}

void OptInMarketingCampaignView::onTapMoveButton() {
  if (!moveButton.isEnabled || moveButton.isHidden) return;
  if (const auto tapped = onMoveButtonTapped) tapped();
  UserEventTracker::track(UserEventName::optInMarketingMoveButtonClick);
}

}  // namespace orrelo
