#include "quick/bridge/Kinds.h"

#include "quick/inappmessage/InAppMessageScreenBridge.h"

#include <array>

namespace orrelo::quick {

Kinds inAppMessageKinds() {
  static constexpr std::array screens{
      screenKind<InAppMessageViewController, InAppMessageScreenBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_InAppMessageCellBridge.cpp"
