#include "modular/content/BlankComponent.h"

#include "modular/content/SpacerView.h"

#include <algorithm>

namespace orrelo {

void BlankComponent::render(StackView& stackView) {
  const auto spacing = static_cast<double>(std::max(height, std::int64_t{0}));
  if (stackView.arrangedSubviews.empty()) {
    stackView.addArrangedSubview(std::make_shared<SpacerView>(spacing));
  } else {
    stackView.setCustomSpacingAfterLast(spacing);
  }
}

}  // namespace orrelo
