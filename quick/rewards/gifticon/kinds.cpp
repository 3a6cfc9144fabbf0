#include "quick/bridge/Kinds.h"

#include "quick/rewards/gifticon/GifticonDetailScreenBridge.h"
#include "quick/rewards/gifticon/GifticonScreenBridge.h"

#include <array>

namespace orrelo::quick {

Kinds gifticonKinds() {
  static constexpr std::array screens{
      screenKind<GifticonDetailViewController, GifticonDetailScreenBridge>(),
      screenKind<GifticonViewController, GifticonScreenBridge>(),
  };
  return {.screens = screens};
}

}  // namespace orrelo::quick

#include "moc_GifticonCellBridge.cpp"
#include "moc_GifticonDetailScreenBridge.cpp"
#include "moc_ZoomImageBridge.cpp"
