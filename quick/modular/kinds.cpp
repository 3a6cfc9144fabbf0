#include "quick/bridge/Kinds.h"

#include "quick/modular/ModularCampaignBridge.h"

#include <array>

namespace orrelo::quick {

Kinds modularKinds() {
  static constexpr std::array views{
      viewKind<ModularCampaignView, ModularCampaignBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_ModularCampaignBridge.cpp"
