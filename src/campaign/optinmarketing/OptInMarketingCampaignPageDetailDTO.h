#pragma once

#include "base/Json.h"

#include <string>
#include <vector>

namespace orrelo {

/// The page that asks the user to allow marketing messages.
struct OptInMarketingCampaignPageDetailDTO {
  std::string imageUrl;
  /// Flexible, like `buttonVisibility`: accepts a boolean or a string.
  bool buttonEnable = false;
  std::string buttonText;
  bool buttonVisibility = false;
  /// A hexadecimal colour.
  std::string color;
  std::vector<std::string> notice;

  static OptInMarketingCampaignPageDetailDTO decode(const JsonObject& json);

  friend bool operator==(const OptInMarketingCampaignPageDetailDTO&,
                         const OptInMarketingCampaignPageDetailDTO&) = default;
};

}  // namespace orrelo
