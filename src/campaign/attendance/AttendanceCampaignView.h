#pragma once

#include "campaign/CampaignActionView.h"
#include "campaign/attendance/AttendanceCampaign.h"
#include "campaign/attendance/CampaignCalendarView.h"
#include "ui/ViewController.h"
#include "viewkit/CampaignInfoView.h"
#include "viewkit/CampaignNoticeView.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// The page of an attendance campaign. The views are members in their order from top to bottom.
class ORRELO_EXPORT AttendanceCampaignView final : public View {
 public:
  /// The kit's default image for campaigns without one.
  static constexpr auto asset = "orl_ic_attendance";

  explicit AttendanceCampaignView(const AttendanceCampaign& campaign);

  /// Presents a reward earned by the check-in on a card above all screens.
  static void presentReward(const CampaignRewardMessage& reward, const Color& color, ViewController& screen);

  static constexpr std::string_view kindName = "AttendanceCampaignView";
  std::string_view kind() const override { return kindName; }

  const std::shared_ptr<CampaignInfoView> infoView = std::make_shared<CampaignInfoView>();
  const std::shared_ptr<CampaignActionView> actionView = std::make_shared<CampaignActionView>();
  const std::shared_ptr<CampaignCalendarView> calendarView = std::make_shared<CampaignCalendarView>();
  const std::shared_ptr<CampaignNoticeView> noticeView;
};

}  // namespace orrelo
