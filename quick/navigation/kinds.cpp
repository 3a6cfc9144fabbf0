#include "quick/bridge/Kinds.h"

#include "quick/navigation/HomeScreenBridge.h"

#include <array>

namespace orrelo::quick {

Kinds navigationKinds() {
  static constexpr std::array screens{
      screenKind<HomeViewController, HomeScreenBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_HomeScreenBridge.cpp"
