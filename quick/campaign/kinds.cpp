#include "quick/bridge/Kinds.h"

#include "quick/campaign/CampaignScreenBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array screens{
    screenKind<CampaignViewController, CampaignScreenBridge>(),
};

}  // namespace

Kinds campaignKinds() {
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_CampaignActionBridge.cpp"
