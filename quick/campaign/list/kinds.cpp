#include "quick/bridge/Kinds.h"

#include "quick/campaign/list/CampaignListBridge.h"

#include <array>

namespace orrelo::quick {

Kinds listKinds() {
  static constexpr std::array screens{
      screenKind<CampaignListViewController, CampaignListBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_CampaignViewCellBridge.cpp"
