#include "quick/bridge/Kinds.h"

#include "quick/referral/ReferralScreenBridge.h"

#include <array>

namespace orrelo::quick {

Kinds referralKinds() {
  static constexpr std::array screens{
      screenKind<ReferralViewController, ReferralScreenBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_ReferralScreenBridge.cpp"
