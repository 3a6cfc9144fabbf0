#include "quick/bridge/Kinds.h"

#include "quick/rewards/RewardTabBridge.h"

#include <array>

namespace orrelo::quick {

Kinds rewardsKinds() {
  static constexpr std::array screens{
      screenKind<RewardViewController, RewardTabBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_RewardTabBridge.cpp"
