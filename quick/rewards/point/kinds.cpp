#include "quick/bridge/Kinds.h"

#include "quick/rewards/point/PointRedemptionHistoryScreenBridge.h"

#include <array>

namespace orrelo::quick {

Kinds pointKinds() {
  static constexpr std::array screens{
      screenKind<PointRedemptionHistoryViewController, PointRedemptionHistoryScreenBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_PointBridge.cpp"
