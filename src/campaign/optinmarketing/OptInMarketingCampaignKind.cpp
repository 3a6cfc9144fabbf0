#include "campaign/optinmarketing/OptInMarketingCampaignKind.h"

#include "campaign/CampaignScreen.h"
#include "campaign/optinmarketing/OptInMarketingCampaignView.h"

#include <utility>

namespace orrelo {

OptInMarketingCampaign OptInMarketingCampaignKind::map(Detail&& dto, Campaign&) {
  return {std::move(dto.imageUrl), std::move(dto.buttonText), dto.buttonVisibility,
          dto.buttonEnable,        Color::fromHex(dto.color), {std::move(dto.notice)}};
}

void OptInMarketingCampaignKind::show(const OptInMarketingCampaign& optIn, const BrandedCampaign&,
                                      const std::shared_ptr<CampaignScreen>& screen) {
  const auto page = OptInMarketingCampaignView::create(optIn);
  page->passTapsToHost(screen);
  screen->show(page);
}

}  // namespace orrelo
