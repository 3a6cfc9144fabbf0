#include "modular/content/TooltipInformationView.h"

#include <utility>

namespace orrelo {

TooltipInformationView::TooltipInformationView(std::string first, std::string second, std::string line,
                                               std::string message)
    : firstTitle(std::move(first)),
      secondTitle(std::move(second)),
      tooltipTitle(std::move(line)),
      guideMessage(std::move(message)),
      tooltipView(std::make_shared<TooltipView>(
          TooltipView::Look{.tooltipBackgroundColor = Color{0.0, 0.0, 0.0, 0.87},
                            .autoDismiss = true,
                            .dismissOnTouchOutside = true,
                            .horizontalBias = 0.1})) {}

void TooltipInformationView::tooltipTitleTapped() {
  tooltipView->explain(guideMessage);
}

}  // namespace orrelo
