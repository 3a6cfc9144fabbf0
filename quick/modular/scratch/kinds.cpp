#include "quick/bridge/Kinds.h"

#include "quick/modular/scratch/ScratchLotteryBridge.h"

#include <array>

namespace orrelo::quick {

Kinds scratchKinds() {
  static constexpr std::array views{
      viewKind<ScratchLotteryView, ScratchLotteryBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_ScratchLotteryBridge.cpp"
