#pragma once

#include "base/Color.h"
#include "campaign/CampaignInfo.h"
#include "campaign/referral/Referral.h"

#include <cstdint>
#include <string>

namespace orrelo {

/// A campaign in which the user invites friends with a code and can enter the code of a friend.
struct ReferralCampaign {
  /// Has the two titles alone.
  CampaignInfo campaignInfo;
  std::string code;
  std::string codeDescription;
  std::string buttonText;
  /// Not shown.
  std::string buttonGuideMessage;
  /// False if the user may not enter a code; `navigateBlockMessage` says why.
  bool navigateEnable = false;
  std::string navigateBlockMessage;
  /// The text that the user shares.
  std::string referralMessage;
  CampaignNotice notice;
  Color primaryColor;
  Color secondaryColor;
  /// The number of friends who have joined.
  std::int64_t cumulativeCount = 0;
  Referral referral;

  friend bool operator==(const ReferralCampaign&, const ReferralCampaign&) = default;
};

}  // namespace orrelo
