#pragma once

#include "campaign/CampaignInfo.h"

#include <string>
#include <variant>

namespace orrelo {

/// The service's answer to the authorization of a verified code, which earns the reward.
struct ReferralAuthorizationResult {
  struct Authorized {
    CampaignRewardMessage rewardMessage;

    friend bool operator==(const Authorized&, const Authorized&) = default;
  };
  struct Error {
    /// The service's reason; empty if it gives none.
    std::string message;

    friend bool operator==(const Error&, const Error&) = default;
  };

  std::variant<Authorized, Error> value;

  friend bool operator==(const ReferralAuthorizationResult&, const ReferralAuthorizationResult&) = default;
};

}  // namespace orrelo
