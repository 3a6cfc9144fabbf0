#include "campaign/attendance/AttendanceCampaignKind.h"

#include "campaign/CampaignScreen.h"
#include "campaign/attendance/AttendanceCampaignView.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orrelo {
namespace {

std::vector<CalendarDate> datesOf(const std::vector<std::string>& texts) {
  std::vector<CalendarDate> dates;
  dates.reserve(texts.size());
  std::transform(texts.begin(), texts.end(), std::back_inserter(dates), &CalendarDate::parse);
  return dates;
}

CampaignRewardMessage rewardMessageOf(RewardMessageDTO&& dto) {
  return {std::move(dto.title), std::move(dto.body), std::move(dto.buttonText)};
}

}  // namespace

AttendanceCampaign AttendanceCampaignKind::map(Detail&& dto, Campaign&) {
  AttendanceCampaign campaign{
      .campaignInfo = {std::move(dto.firstTitle), std::move(dto.secondTitle), std::move(dto.guideMessage),
                       std::move(dto.imageUrl)},
      .action = {std::move(dto.buttonText), std::move(dto.statusMessage), std::move(dto.buttonUrl),
                 dto.buttonEnable},
      .calendar = {.today = CalendarDate::parse(dto.today),
                   .primaryHighlightDates = datesOf(dto.attendedDate),
                   .secondaryHighlightDates = datesOf(dto.highlightDate),
                   .highlightIconUrl = std::move(dto.highlightIcon),
                   .descriptions = std::move(dto.calendarDescription),
                   .primaryColor = Color::fromHex(dto.color),
                   .secondaryColor = Color::fromHex(dto.highlightColor)},
      .notice = {std::move(dto.notice)},
      .rewardMessage = std::nullopt,
  };
  if (dto.rewardMessage) campaign.rewardMessage = rewardMessageOf(*std::move(dto.rewardMessage));
  return campaign;
}

void AttendanceCampaignKind::show(const AttendanceCampaign& attendance, const BrandedCampaign&,
                                  const std::shared_ptr<CampaignScreen>& screen) {
  const auto page = std::make_shared<AttendanceCampaignView>(attendance);
  page->actionView->delegate = screen;
  screen->show(page);
  if (attendance.rewardMessage && screen->isAttached()) {
    AttendanceCampaignView::presentReward(*attendance.rewardMessage, attendance.calendar.primaryColor,
                                          *screen->viewController());
  }
}

}  // namespace orrelo
