#pragma once

#include "base/Color.h"
#include "campaign/CampaignInfo.h"

#include <string>

namespace orrelo {

/// An invitation to allow marketing messages, which the host itself asks for.
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
