#pragma once

#include <string>

namespace orrelo {

/// Stands in for a campaign that this build cannot show; never sent by the service.
struct InduceUpdateCampaign {
  std::string appStoreUrl;

  friend bool operator==(const InduceUpdateCampaign&, const InduceUpdateCampaign&) = default;
};

}  // namespace orrelo
