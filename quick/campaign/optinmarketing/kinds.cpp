#include "quick/bridge/Kinds.h"

#include "quick/campaign/optinmarketing/OptInMarketingCampaignBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<OptInMarketingCampaignView, OptInMarketingCampaignBridge>(),
};

}  // namespace

Kinds optInMarketingKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_OptInMarketingCampaignBridge.cpp"
