#include "quick/bridge/Kinds.h"

#include "quick/campaign/update/InduceUpdateBridge.h"

#include <array>

namespace orrelo::quick {

Kinds updateKinds() {
  static constexpr std::array views{
      viewKind<InduceUpdateView, InduceUpdateBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_InduceUpdateBridge.cpp"
