#pragma once

namespace orrelo {

struct UnknownCampaign {
  friend bool operator==(const UnknownCampaign&, const UnknownCampaign&) = default;
};

}  // namespace orrelo
