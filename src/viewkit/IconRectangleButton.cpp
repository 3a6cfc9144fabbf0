#include "viewkit/IconRectangleButton.h"

namespace orrelo {

void IconRectangleButton::setBadge(std::optional<std::int64_t> count, const Color& color) {
  state.change([&](State& changed) {
    changed.badgeText = !count ? "" : *count < 10 ? std::to_string(*count) : "9+";
    changed.badgeColor = color;
  });
}

}  // namespace orrelo
