#include "campaign/attendance/AttendanceCampaignView.h"

#include "events/UserEventTracker.h"
#include "viewkit/CampaignRewardViewController.h"

namespace orrelo {

AttendanceCampaignView::AttendanceCampaignView(const AttendanceCampaign& campaign)
    : noticeView(std::make_shared<CampaignNoticeView>(campaign.notice.messages)) {
  const auto& info = campaign.campaignInfo;
  infoView->configure({info.firstTitle, info.secondTitle, "출석체크 안내", info.guideMessage});
  if (info.imageUrl) {
    infoView->imageView->load(*info.imageUrl);
  } else {
    infoView->imageView->setAsset(asset);
  }
  actionView->configure(campaign.action, campaign.calendar.primaryColor,
                        [] { UserEventTracker::track(UserEventName::attendanceButtonClick); });
  calendarView->configure(campaign.calendar);
}

void AttendanceCampaignView::presentReward(const CampaignRewardMessage& reward, const Color& color,
                                           ViewController& screen) {
  const CampaignRewardViewController::Content content{reward.title, reward.message, reward.buttonText, color};
  screen.root()->topmost()->present(std::make_shared<CampaignRewardViewController>(content), false);
}

}  // namespace orrelo
