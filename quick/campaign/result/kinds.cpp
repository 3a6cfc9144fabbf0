#include "quick/bridge/Kinds.h"

#include "quick/campaign/result/CampaignResultBridge.h"

#include <array>

namespace orrelo::quick {

Kinds resultKinds() {
  static constexpr std::array views{
      viewKind<CampaignResultView, CampaignResultBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_CampaignResultBridge.cpp"
