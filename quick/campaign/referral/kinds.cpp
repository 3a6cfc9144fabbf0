#include "quick/bridge/Kinds.h"

#include "quick/campaign/referral/ReferralCampaignBridge.h"

#include <array>

namespace orrelo::quick {

Kinds referralCampaignKinds() {
  static constexpr std::array views{
      viewKind<ReferralCampaignView, ReferralCampaignBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_ReferralCampaignBridge.cpp"
