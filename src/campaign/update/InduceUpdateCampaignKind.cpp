#include "campaign/update/InduceUpdateCampaignKind.h"

#include "campaign/CampaignScreen.h"
#include "campaign/update/InduceUpdateView.h"

namespace orrelo {

void InduceUpdateCampaignKind::show(const InduceUpdateCampaign& update, const BrandedCampaign& element,
                                    const std::shared_ptr<CampaignScreen>& screen) {
  screen->show(std::make_shared<InduceUpdateView>(update.appStoreUrl, element.primary,
                                                  screen->viewController()->toastLayer));
}

}  // namespace orrelo
