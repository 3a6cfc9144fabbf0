#include "quick/bridge/Kinds.h"

#include "quick/campaign/entry/CampaignFloatingActionButtonBridge.h"
#include "quick/campaign/entry/CampaignFloatingActionButtonItem.h"

#include <array>

namespace orrelo::quick {

Kinds entryKinds() {
  static constexpr std::array views{
      viewKind<CampaignFloatingActionButton, CampaignFloatingActionButtonBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_CampaignFloatingActionButtonBridge.cpp"
#include "moc_CampaignFloatingActionButtonItem.cpp"
