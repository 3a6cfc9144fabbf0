#include "campaign/unknown/UnknownCampaignKind.h"

#include "campaign/CampaignScreen.h"

namespace orrelo {

void UnknownCampaignKind::show(const UnknownCampaign&, const BrandedCampaign&,
                               const std::shared_ptr<CampaignScreen>& screen) {
  screen->showError(OrreloError::unknownCampaign);
}

}  // namespace orrelo
