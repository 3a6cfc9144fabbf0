#include "viewkit/base/StackView.h"

#include <utility>

namespace orrelo {

void StackView::addArrangedSubview(std::shared_ptr<View> view, std::optional<double> inset) {
  state.change([&](State& changed) { changed.arrangedSubviews.push_back({std::move(view), inset}); });
}

void StackView::setCustomSpacingAfterLast(double spacing) {
  state.change([&](State& changed) {
    if (!changed.arrangedSubviews.empty()) changed.arrangedSubviews.back().spacingAfter = spacing;
  });
}

}  // namespace orrelo
