#pragma once

#include "image/ImageView.h"
#include "ui/View.h"
#include "viewkit/TooltipView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// The header of a campaign's page: two title rows, a guide line that opens a tooltip, and an image.
class ORRELO_EXPORT CampaignInfoView final : public View {
 public:
  struct State {
    /// A row without text is not shown.
    std::string firstTitle;
    std::string secondTitle;
    std::string guideTitle;
    /// The text of the tooltip. If empty, the guide line has no icon and ignores taps.
    std::string guideMessage;

    friend bool operator==(const State&, const State&) = default;
  };
  /// The icon after the guide's title if there is a message.
  static constexpr auto guideAsset = "orl_ic_information";

  CampaignInfoView();

  std::string_view kind() const override { return "CampaignInfoView"; }

  void configure(State content);
  /// Called when the user taps the guide line.
  void guideLabelTapped();

  Followed<State> state;
  const std::shared_ptr<TooltipView> tooltipView;
  const std::shared_ptr<ImageView> imageView;
};

}  // namespace orrelo
