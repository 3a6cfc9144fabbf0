#include "quick/bridge/Kinds.h"

#include "quick/campaign/stamp/StampBoardBridge.h"
#include "quick/campaign/stamp/StampCampaignBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<StampBoardView, StampBoardBridge>(),
    viewKind<StampCampaignView, StampCampaignBridge>(),
};

}  // namespace

Kinds stampKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_StampBoardBridge.cpp"
#include "moc_StampCampaignBridge.cpp"
#include "moc_StampCellBridge.cpp"
