#include "ui/StackView.h"

#include <utility>

namespace orrelo {

void StackView::addArrangedSubview(std::shared_ptr<View> view, std::optional<double> inset) {
  arrangedSubviews.push_back({std::move(view), inset});
}

void StackView::setCustomSpacingAfterLast(double spacing) {
  if (!arrangedSubviews.empty()) arrangedSubviews.back().spacingAfter = spacing;
}

}  // namespace orrelo
