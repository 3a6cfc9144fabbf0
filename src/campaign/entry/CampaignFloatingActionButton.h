#pragma once

#include "base/Color.h"
#include "campaign/entry/CampaignEntryView.h"
#include "campaign/entry/CampaignFloatingActionButtonViewModel.h"
#include "image/ImageView.h"
#include "viewkit/TooltipView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string_view>

namespace orrelo {

/// An entry view with a look of its own: a round button whose icon and colour the service defines, with a
/// tooltip beside it.
class ORRELO_EXPORT CampaignFloatingActionButton final : public CampaignEntryView {
 public:
  /// The distance from the button to the trailing edge.
  static constexpr double inset = 16.0;
  static constexpr double maximumTooltipWidth = 300.0;
  /// The name for assistive technology.
  static constexpr auto accessibilityLabel = "이벤트";
  /// The icon until another one has been loaded.
  static constexpr auto placeholderAsset = "orl_ic_gift";

  /// The button starts invisible, even if a user is signed in, and appears at the next change of the user.
  static std::shared_ptr<CampaignFloatingActionButton> create();

  static constexpr std::string_view kindName = "CampaignFloatingActionButton";
  std::string_view kind() const override { return kindName; }

  /// Called by the front when the tooltip has faded out.
  void tooltipDidFade() { tooltipView->hide(); }

  /// The button's colour; white until the service has defined one.
  Followed<Color> color{Color{1.0, 1.0, 1.0}};
  const std::shared_ptr<ImageView> iconImageView = std::make_shared<ImageView>();
  const std::shared_ptr<TooltipView> tooltipView;

 private:
  CampaignFloatingActionButton();

  void followProperty();
  void show(const FloatingActionButtonProperty& property);

  std::shared_ptr<CampaignFloatingActionButtonViewModel> viewModel_;
};

}  // namespace orrelo
