#include "quick/bridge/Kinds.h"

#include "quick/campaign/update/InduceUpdateBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<InduceUpdateView, InduceUpdateBridge>(),
};

}  // namespace

Kinds updateKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_InduceUpdateBridge.cpp"
