#include "campaign/CampaignMapper.h"

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

CampaignPopUpDialog popUpDialogOf(PopUpDialogDTO&& dto) {
  return {std::move(dto.title), std::move(dto.label), std::move(dto.imageUrl), std::move(dto.buttonText)};
}

AttendanceCampaign attendanceOf(AttendanceCampaignPageDetailDTO&& dto) {
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

OptInMarketingCampaign optInMarketingOf(OptInMarketingCampaignPageDetailDTO&& dto) {
  return {std::move(dto.imageUrl), std::move(dto.buttonText), dto.buttonVisibility,
          dto.buttonEnable,        Color::fromHex(dto.color), {std::move(dto.notice)}};
}

StampCampaign stampOf(StampCampaignPageDTO&& dto) {
  StampCampaign campaign{.columnCount = dto.stampDTO.columnCount,
                         .missions = {},
                         .mainImageUrl = std::move(dto.mainImageUrl),
                         .subImageUrl = std::move(dto.subImageUrl),
                         .info = std::nullopt,
                         .notice = std::nullopt,
                         .layout = {}};
  for (auto& mission : dto.stampDTO.mission) {
    campaign.missions.push_back({std::move(mission.name), std::move(mission.iconUrl)});
  }
  const auto& order = dto.layoutDTO.componentOrder;
  std::transform(order.begin(), order.end(), std::back_inserter(campaign.layout.componentOrder),
                 &stampCampaignComponent);
  const auto names = [&](std::string_view word) {
    return std::find(order.begin(), order.end(), word) != order.end();
  };
  if (names("information")) {
    campaign.info =
        CampaignInfo{std::move(dto.firstTitle).value_or(""), std::move(dto.secondTitle).value_or(""),
                     std::move(dto.guideMessage).value_or(""), std::nullopt};
  }
  if (names("notice"))
    campaign.notice = CampaignNotice{std::move(dto.notice).value_or(std::vector<std::string>())};
  return campaign;
}

// The name and the label are the campaign's, not the page's.
CampaignResult resultOf(CampaignResultPageDTO&& dto, const Campaign& campaign) {
  CampaignResult result{campaign.name,       campaign.label,          std::move(dto.imageUrl),
                        std::move(dto.body), {std::move(dto.notice)}, std::nullopt};
  if (dto.popUpDialog) result.popUpDialog = popUpDialogOf(*std::move(dto.popUpDialog));
  return result;
}

// A modular page has its title in its layout, and there alone.
std::optional<std::string> titleOf(PageDetailDTO& detail) {
  const auto* const modular = std::get_if<ModularCampaignPageDTO>(&detail.kind);
  if (modular == nullptr) return std::move(detail.toolbarText);
  const auto& toolbar = modular->config.layout.toolbar;
  return toolbar ? std::optional(toolbar->text) : std::nullopt;
}

struct TypeOf {
  const Campaign& campaign;

  Campaign::CampaignType operator()(AttendanceCampaignPageDetailDTO& dto) const {
    return attendanceOf(std::move(dto));
  }
  Campaign::CampaignType operator()(OptInMarketingCampaignPageDetailDTO& dto) const {
    return optInMarketingOf(std::move(dto));
  }
  Campaign::CampaignType operator()(ReferralCampaignPageDTO&) const { return ReferralCampaign{}; }
  Campaign::CampaignType operator()(StampCampaignPageDTO& dto) const { return stampOf(std::move(dto)); }
  Campaign::CampaignType operator()(ModularCampaignPageDTO& dto) const {
    return ModularCampaign{std::move(dto.components), std::move(dto.config)};
  }
  Campaign::CampaignType operator()(CampaignResultPageDTO& dto) const {
    return resultOf(std::move(dto), campaign);
  }
  // A deprecated page too: deliberately, its user is led to an update and not to DeprecatedCampaign.
  Campaign::CampaignType operator()(DeprecatedPageDTO&) const { return UnknownCampaign{}; }
  Campaign::CampaignType operator()(UnknownCampaignDetailDTO&) const { return UnknownCampaign{}; }
};

}  // namespace

Campaign CampaignMapper::map(CampaignDTO&& dto) const {
  auto& detail = dto.page.pageDetail;
  Campaign campaign{std::move(dto.id), std::move(dto.label), std::move(dto.name), std::move(dto.iconUrl),
                    titleOf(detail)};
  campaign.type = std::visit(TypeOf{campaign}, detail.kind);
  return campaign;
}

}  // namespace orrelo
