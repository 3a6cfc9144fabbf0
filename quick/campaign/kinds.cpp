#include "quick/bridge/Kinds.h"

#include "quick/campaign/CampaignScreenBridge.h"

#include <array>

namespace orrelo::quick {

Kinds campaignKinds() {
  static constexpr std::array screens{
      screenKind<CampaignViewController, CampaignScreenBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_CampaignActionBridge.cpp"
