#include "quick/bridge/Kinds.h"

#include "quick/modular/ModularCampaignBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<ModularCampaignView, ModularCampaignBridge>(),
};

}  // namespace

Kinds modularKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_ModularCampaignBridge.cpp"
