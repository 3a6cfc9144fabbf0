#pragma once

#include <string>

namespace orrelo {

/// The state of a campaign that is stored on the device.
struct CampaignState {
  std::string campaignId;
  /// The dialog of the campaign's result has been presented.
  bool popUpDialogIsShown = false;

  friend bool operator==(const CampaignState&, const CampaignState&) = default;
};

}  // namespace orrelo
