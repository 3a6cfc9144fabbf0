#pragma once

#include "campaign/CampaignInfo.h"
#include "referral/ReferralError.h"

#include <variant>

namespace orrelo {

/// The state of the screen for a friend's code.
struct ReferralViewState {
  struct Authorized {
    CampaignRewardMessage rewardMessage;
    friend bool operator==(const Authorized&, const Authorized&) = default;
  };
  struct Idle {
    friend bool operator==(const Idle&, const Idle&) = default;
  };
  struct Loading {
    friend bool operator==(const Loading&, const Loading&) = default;
  };
  struct Verified {
    friend bool operator==(const Verified&, const Verified&) = default;
  };

  std::variant<Authorized, ReferralError, Idle, Loading, Verified> value;

  friend bool operator==(const ReferralViewState&, const ReferralViewState&) = default;
};

}  // namespace orrelo
