#pragma once

#include <string>

namespace orrelo {

/// A banner that leads to a campaign.
struct InAppMessage {
  std::string campaignId;
  std::string imageUrl;

  friend bool operator==(const InAppMessage&, const InAppMessage&) = default;
};

}  // namespace orrelo
