#include "quick/bridge/Kinds.h"

#include "quick/campaign/result/CampaignResultBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<CampaignResultView, CampaignResultBridge>(),
};

}  // namespace

Kinds resultKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_CampaignResultBridge.cpp"
