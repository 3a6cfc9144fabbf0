#pragma once

#include "image/ImageView.h"
#include "ui/View.h"
#include "viewkit/TooltipView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// The head of a campaign's page: two title rows, a line that explains itself when it is tapped, a picture.
class ORRELO_EXPORT CampaignInfoView final : public View {
 public:
  struct State {
    /// A row without text is not there.
    std::string firstTitle;
    std::string secondTitle;
    std::string guideTitle;
    /// What the tooltip says; empty where the line is plain and a tap does nothing.
    std::string guideMessage;

    friend bool operator==(const State&, const State&) = default;
  };
  /// Stands behind the guide's title where there is a message.
  static constexpr auto guideAsset = "orl_ic_information";

  CampaignInfoView();

  std::string_view kind() const override { return "CampaignInfoView"; }

  void configure(State content);
  /// A tap on the guide's line.
  void guideLabelTapped();

  Followed<State> state;
  const std::shared_ptr<TooltipView> tooltipView;
  const std::shared_ptr<ImageView> imageView;
};

}  // namespace orrelo
