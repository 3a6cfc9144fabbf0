#include "quick/bridge/Kinds.h"

#include "quick/image/ImageBridge.h"

#include <array>

namespace orrelo::quick {

Kinds imageKinds() {
  static constexpr std::array views{
      viewKind<AutoLayoutImageView, ImageBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick
