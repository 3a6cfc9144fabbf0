#pragma once

namespace orrelo {

/// A page that this build cannot decode.
struct UnknownCampaignDetailDTO {
  friend bool operator==(const UnknownCampaignDetailDTO&, const UnknownCampaignDetailDTO&) = default;
};

}  // namespace orrelo
