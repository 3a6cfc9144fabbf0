#include "viewkit/CampaignInfoView.h"

#include <utility>

namespace orrelo {

CampaignInfoView::CampaignInfoView()
    : tooltipView(std::make_shared<TooltipView>(
          TooltipView::Look{.tooltipBackgroundColor = Color{0.0, 0.0, 0.0, 0.87},
                            .autoDismiss = true,
                            .dismissOnTouchOutside = true,
                            .horizontalBias = 0.1})),
      imageView(std::make_shared<ImageView>()) {}

void CampaignInfoView::configure(State content) {
  tooltipView->hide();
  state.set(std::move(content));
}

void CampaignInfoView::guideLabelTapped() {
  tooltipView->explain(state.value().guideMessage);
}

}  // namespace orrelo
