#include "quick/bridge/Kinds.h"

#include "quick/image/ImageBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<AutoLayoutImageView, ImageBridge>(),
};

}  // namespace

Kinds imageKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick

#include "moc_ImageBridge.cpp"
