#include "quick/bridge/Kinds.h"

#include "quick/host/NavigationBridge.h"

#include <array>

namespace orrelo::quick {

Kinds hostKinds() {
  static constexpr std::array screens{
      screenKind<NavigationController, NavigationBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_ScreenLayerBridge.cpp"
