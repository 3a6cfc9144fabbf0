#include "quick/bridge/Kinds.h"

#include "quick/host/NavigationBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array screens{
    screenKind<NavigationController, NavigationBridge>(),
};

}  // namespace

Kinds hostKinds() {
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_ScreenLayerBridge.cpp"
