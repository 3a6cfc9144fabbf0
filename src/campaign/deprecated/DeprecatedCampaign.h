#pragma once

#include <string>

namespace orrelo {

struct DeprecatedCampaign {
  std::string type;

  friend bool operator==(const DeprecatedCampaign&, const DeprecatedCampaign&) = default;
};

}  // namespace orrelo
