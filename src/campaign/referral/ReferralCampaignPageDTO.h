#pragma once

namespace orrelo {

struct ReferralCampaignPageDTO {
  friend bool operator==(const ReferralCampaignPageDTO&, const ReferralCampaignPageDTO&) = default;
};

}  // namespace orrelo
