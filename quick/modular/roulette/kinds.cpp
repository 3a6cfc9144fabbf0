#include "quick/bridge/Kinds.h"

#include "quick/modular/roulette/RouletteBridge.h"

#include <array>

namespace orrelo::quick {

Kinds rouletteKinds() {
  static constexpr std::array views{
      viewKind<RouletteView, RouletteBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick
