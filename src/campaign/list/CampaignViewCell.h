#pragma once

#include "campaign/Campaign.h"
#include "image/ImageView.h"
#include "ui/View.h"
#include "viewkit/joinedLabel.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

/// A campaign in a list: its icon, its label above its name, and an arrow.
class ORRELO_EXPORT CampaignViewCell final : public View {
 public:
  /// The width and the height of the icon.
  static constexpr double iconSize = 24.0;
  static constexpr auto tapAsset = "orl_ic_chevron_right";

  explicit CampaignViewCell(const Campaign& campaign)
      : campaignId(campaign.id),
        campaignLabel(campaign.label),
        campaignName(campaign.name),
        iconUrl(campaign.iconUrl) {}

  std::string_view kind() const override { return "CampaignViewCell"; }
  std::string accessibilityLabel() const { return joinedLabel(campaignLabel, campaignName); }

  /// True if a cell of `campaign` would show the same.
  bool shows(const Campaign& campaign) const {
    return campaignId == campaign.id && campaignLabel == campaign.label && campaignName == campaign.name &&
           iconUrl == campaign.iconUrl;
  }
  /// Loads the icon unless it is shown.
  void loadIcon() {
    if (!iconImageView->state.value().image) iconImageView->load(iconUrl);
  }

  const std::string campaignId;
  const std::string campaignLabel;
  const std::string campaignName;
  const std::string iconUrl;
  const std::shared_ptr<ImageView> iconImageView = std::make_shared<ImageView>();
  /// Set by the list: true while the user can see the cell.
  bool isInSight = false;
};

}  // namespace orrelo
