#include "quick/bridge/Kinds.h"

#include "quick/campaign/optinmarketing/OptInMarketingCampaignBridge.h"

#include <array>

namespace orrelo::quick {

Kinds optInMarketingKinds() {
  static constexpr std::array views{
      viewKind<OptInMarketingCampaignView, OptInMarketingCampaignBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_OptInMarketingCampaignBridge.cpp"
