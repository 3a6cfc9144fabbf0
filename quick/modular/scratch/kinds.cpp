#include "quick/bridge/Kinds.h"

#include "quick/modular/scratch/ScratchLotteryBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<ScratchLotteryView, ScratchLotteryBridge>(),
};

}  // namespace

Kinds scratchKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_ScratchLotteryBridge.cpp"
