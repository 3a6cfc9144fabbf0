#include "campaign/optinmarketing/OptInMarketingCampaignKind.h"

#include "base/Logger.h"
#include "campaign/CampaignScreen.h"
#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "model/Delegates.h"

#include <utility>

namespace orrelo {

OptInMarketingCampaign OptInMarketingCampaignKind::map(Detail&& dto, Campaign&) {
  return {std::move(dto.imageUrl), std::move(dto.buttonText), dto.buttonVisibility,
          dto.buttonEnable,        Color::fromHex(dto.color), {std::move(dto.notice)}};
}

void OptInMarketingCampaignKind::show(const OptInMarketingCampaign& optIn, const BrandedCampaign&,
                                      const std::shared_ptr<CampaignScreen>& screen) {
  const auto page = OptInMarketingCampaignView::create(optIn);
  page->onMoveButtonTapped = [weak = std::weak_ptr(screen)] {
    const auto shown = weak.lock();
    if (!shown) return;
    log(LogLevel::DEBUG, "(ORLOptInMarketingCampaignDelegate) onMoveButtonTapped:in");
    if (const auto host = optInMarketingCampaignDelegate()) host->onMoveButtonTapped(shown->viewController());
  };
  screen->show(page);
}

}  // namespace orrelo
