#include "quick/bridge/Kinds.h"

#include "quick/modular/roulette/RouletteBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<RouletteView, RouletteBridge>(),
};

}  // namespace

Kinds rouletteKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick
