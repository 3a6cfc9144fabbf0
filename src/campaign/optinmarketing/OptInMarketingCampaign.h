#pragma once

#include "base/Color.h"
#include "campaign/CampaignInfo.h"

#include <string>

namespace orrelo {

/// Asks the user to allow marketing messages. The consent itself is handled by the host.
struct OptInMarketingCampaign {
  std::string imageUrl;
  std::string buttonText;
  bool buttonVisibility = false;
  bool buttonEnabled = false;
  Color color;
  CampaignNotice notice;

  friend bool operator==(const OptInMarketingCampaign&, const OptInMarketingCampaign&) = default;
};

}  // namespace orrelo
