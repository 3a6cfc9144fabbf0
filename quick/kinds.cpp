#include "quick/bridge/Kinds.h"

#include <array>

namespace orrelo::quick {

// Each folder with views or screens defines one of these functions in its own kinds.cpp. A new folder must be
// added both here and in `allKinds`.
Kinds imageKinds();
Kinds viewkitKinds();
Kinds modularKinds();
Kinds contentKinds();
Kinds rouletteKinds();
Kinds scratchKinds();
Kinds campaignKinds();
Kinds attendanceKinds();
Kinds entryKinds();
Kinds listKinds();
Kinds optInMarketingKinds();
Kinds referralCampaignKinds();
Kinds resultKinds();
Kinds stampKinds();
Kinds updateKinds();
Kinds gifticonKinds();
Kinds pointKinds();
Kinds externalPointKinds();
Kinds rewardsKinds();
Kinds referralKinds();
Kinds inAppMessageKinds();
Kinds navigationKinds();
Kinds hostKinds();

std::span<const Kinds> allKinds() {
  static const std::array folders{
      imageKinds(),        viewkitKinds(),       modularKinds(),        contentKinds(),
      rouletteKinds(),     scratchKinds(),       campaignKinds(),       attendanceKinds(),
      entryKinds(),        listKinds(),          optInMarketingKinds(), referralCampaignKinds(),
      resultKinds(),       stampKinds(),         updateKinds(),         gifticonKinds(),
      pointKinds(),        externalPointKinds(), rewardsKinds(),        referralKinds(),
      inAppMessageKinds(), navigationKinds(),    hostKinds(),
  };
  return folders;
}

}  // namespace orrelo::quick
