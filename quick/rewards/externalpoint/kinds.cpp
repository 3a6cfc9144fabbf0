#include "quick/bridge/Kinds.h"

#include "quick/rewards/externalpoint/ExternalPointEntryBridge.h"
#include "quick/rewards/externalpoint/ExternalPointExchangeBridge.h"

#include <array>

namespace orrelo::quick {

Kinds externalPointKinds() {
  static constexpr std::array views{
      viewKind<ExternalPointEntryView, ExternalPointEntryBridge>(),
  };
  static constexpr std::array screens{
      screenKind<ExternalPointExchangeViewController, ExternalPointExchangeBridge>(),
  };
  return {.views = views, .screens = screens};
}

}  // namespace orrelo::quick

#include "moc_ExternalPointEntryBridge.cpp"
#include "moc_ExternalPointExchangeBridge.cpp"
