#pragma once

#include "campaign/CampaignInfo.h"
#include "campaign/attendance/CampaignCalendar.h"

#include <optional>

namespace orrelo {

/// A daily check-in.
struct AttendanceCampaign {
  CampaignInfo campaignInfo;
  CampaignAction action;
  CampaignCalendar calendar;
  CampaignNotice notice;
  /// Sent with the check-in that has just earned it.
  std::optional<CampaignRewardMessage> rewardMessage;

  friend bool operator==(const AttendanceCampaign&, const AttendanceCampaign&) = default;
};

}  // namespace orrelo
