#include "viewkit/TooltipView.h"

namespace orrelo {

TooltipView::Shape TooltipView::shape(Size size) const {
  constexpr double tailWidth = 14.0;
  const bool isOnTop = look.tailPosition == TailPosition::top;
  const double left = look.horizontalBias * size.width;
  const double base = isOnTop ? tailHeight : size.height - tailHeight;
  const double tip = isOnTop ? 0.0 : size.height;
  return {.top = isOnTop ? tailHeight : 0.0,
          .size = {size.width, size.height - tailHeight},
          .tail = {{{left, base}, {left + tailWidth / 2, tip}, {left + tailWidth, base}}}};
}

void TooltipView::show(const std::string& text) {
  state.change([&](State& state) {
    state.text = text;
    state.isHidden = false;
    ++state.shownCount;
  });
}

void TooltipView::hide() {
  state.change([](State& state) { state.isHidden = true; });
}

void TooltipView::handleTapAction() {
  state.change([](State& state) { state.isHidden = !state.isHidden; });
}

}  // namespace orrelo
