#include "viewkit/TooltipView.h"

#include "events/UserEventTracker.h"

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
  state.change([&](State& changed) {
    changed.text = text;
    changed.isHidden = false;
    ++changed.shownCount;
  });
}

void TooltipView::explain(const std::string& text) {
  if (text.empty()) return;
  show(text);
  UserEventTracker::track(UserEventName::tooltipShow);
}

void TooltipView::hide() {
  state.change([](State& changed) { changed.isHidden = true; });
}

void TooltipView::handleTapAction() {
  state.change([](State& changed) { changed.isHidden = !changed.isHidden; });
}

}  // namespace orrelo
