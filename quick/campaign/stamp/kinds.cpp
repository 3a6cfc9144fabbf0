#include "quick/bridge/Kinds.h"

#include "quick/campaign/stamp/StampBoardBridge.h"
#include "quick/campaign/stamp/StampCampaignBridge.h"

#include <array>

namespace orrelo::quick {

Kinds stampKinds() {
  static constexpr std::array views{
      viewKind<StampBoardView, StampBoardBridge>(),
      viewKind<StampCampaignView, StampCampaignBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_StampBoardBridge.cpp"
#include "moc_StampCampaignBridge.cpp"
#include "moc_StampCellBridge.cpp"
