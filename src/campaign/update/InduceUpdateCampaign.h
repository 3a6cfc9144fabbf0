#pragma once

#include <string>

namespace orrelo {

/// Replaces a campaign that this build cannot show. Never sent by the service.
struct InduceUpdateCampaign {
  std::string appStoreUrl;

  friend bool operator==(const InduceUpdateCampaign&, const InduceUpdateCampaign&) = default;
};

}  // namespace orrelo
