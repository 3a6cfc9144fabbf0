#pragma once

namespace orrelo {

struct ReferralCampaign {
  friend bool operator==(const ReferralCampaign&, const ReferralCampaign&) = default;
};

}  // namespace orrelo
