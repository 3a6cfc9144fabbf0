#include "campaign/deprecated/DeprecatedCampaignKind.h"

#include "campaign/CampaignScreen.h"

namespace orrelo {

void DeprecatedCampaignKind::show(const DeprecatedCampaign&, const BrandedCampaign&,
                                  const std::shared_ptr<CampaignScreen>& screen) {
  screen->showError(OrreloError::deprecatedCampaign);
}

}  // namespace orrelo
