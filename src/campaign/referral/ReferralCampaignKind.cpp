#include "campaign/referral/ReferralCampaignKind.h"

#include "campaign/CampaignScreen.h"

namespace orrelo {

void ReferralCampaignKind::show(const ReferralCampaign&, const BrandedCampaign&,
                                const std::shared_ptr<CampaignScreen>& screen) {
  screen->showError(OrreloError::unknownCampaign);
}

}  // namespace orrelo
