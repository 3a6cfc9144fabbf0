#pragma once

#include "campaign/CampaignInfo.h"
#include "campaign/attendance/CampaignCalendar.h"

#include <optional>

namespace orrelo {

/// A campaign with daily check-ins.
struct AttendanceCampaign {
  CampaignInfo campaignInfo;
  CampaignAction action;
  CampaignCalendar calendar;
  CampaignNotice notice;
  /// Only present in the reply to a check-in that has earned the reward.
  std::optional<CampaignRewardMessage> rewardMessage;

  friend bool operator==(const AttendanceCampaign&, const AttendanceCampaign&) = default;
};

}  // namespace orrelo
