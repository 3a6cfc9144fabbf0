#include "events/UserEventTracker.h"

#include "base/EnumTexts.h"
#include "base/Logger.h"
#include "events/EventValueDescription.h"
#include "events/KelsoInsight.h"
#include "model/Delegates.h"

namespace orrelo {
namespace {

constexpr EnumTexts<UserEventValueKey, 5> valueKeys({
    {UserEventValueKey::campaignId, "campaign_id"},
    {UserEventValueKey::campaignType, "campaign_type"},
    {UserEventValueKey::campaignEntryPointName, "campaign_entry_point_name"},
    {UserEventValueKey::rewardTabItemName, "reward_tab_item_name"},
    {UserEventValueKey::pageName, "page_name"},
});

constexpr EnumTexts<UserEventName, 27> eventNames({
    {UserEventName::attendanceButtonClick, "ol_attendance_button_click"},
    {UserEventName::campaignEntryPointShow, "ol_campaign_entry_point_show"},
    {UserEventName::campaignEntryPointClick, "ol_campaign_entry_point_click"},
    {UserEventName::campaignParticipateButtonClick, "ol_campaign_participate_button_click"},
    {UserEventName::campaignListItemShow, "ol_campaign_list_item_show"},
    {UserEventName::campaignListItemClick, "ol_campaign_list_item_click"},
    {UserEventName::tooltipShow, "ol_tooltip_show"},
    {UserEventName::optInMarketingMoveButtonClick, "ol_opt_in_marketing_move_button_click"},
    {UserEventName::visit, "ol_visit"},
    {UserEventName::pointViewShow, "ol_point_view_show"},
    {UserEventName::pointViewClick, "ol_point_view_click"},
    {UserEventName::referralCopyCodeButtonClick, "ol_referral_copy_code_button_click"},
    {UserEventName::referralNavigationViewClick, "ol_referral_navigation_view_click"},
    {UserEventName::referralNavigationViewShow, "ol_referral_navigation_view_show"},
    {UserEventName::referralSharingButtonClick, "ol_referral_sharing_button_click"},
    {UserEventName::referralCodeAuthorizeButtonClick, "ol_referral_code_authorize_button_click"},
    {UserEventName::referralCodeConfirmButtonClick, "ol_referral_code_confirm_button_click"},
    {UserEventName::referralCodeAuthorized, "ol_referral_code_authorized"},
    {UserEventName::referralCodeConfirmed, "ol_referral_code_confirmed"},
    {UserEventName::rewardPopUpShow, "ol_reward_pop_up_show"},
    {UserEventName::rewardTabShow, "ol_reward_tab_show"},
    {UserEventName::rewardTabItemClick, "ol_reward_tab_item_click"},
    {UserEventName::rouletteSpinWheelEnd, "ol_roulette_spin_wheel_end"},
    {UserEventName::rouletteSpinWheelStart, "ol_roulette_spin_wheel_start"},
    {UserEventName::scratchLotteryScratchBlock, "ol_scratch_lottery_scratch_block"},
    {UserEventName::scratchLotteryScratchEnd, "ol_scratch_lottery_scratch_end"},
    {UserEventName::induceUpdateButtonClick, "ol_induce_update_button_click"},
});

}  // namespace

std::string_view rawValue(UserEventValueKey key) {
  return valueKeys.text(key);
}

std::optional<UserEventValueKey> userEventValueKey(std::string_view rawValue) {
  return valueKeys.value(rawValue);
}

std::string_view rawValue(UserEventName name) {
  return eventNames.text(name);
}

void UserEventTracker::track(UserEventName name, const Values& values, bool skipBI) {
  ORLUserEvent event{std::string(rawValue(name)), std::nullopt};
  if (!values.empty()) {
    event.values.emplace();
    for (const auto& [key, value] : values) event.values->emplace(rawValue(key), value);
  }
  track(event, skipBI);
}

void UserEventTracker::track(const ORLUserEvent& event, bool skipBI) {
  log(LogLevel::TRACE, [&] {
    return "userEventDidOccur. name:" + event.name +
           " values:" + (event.values ? description(*event.values) : std::string());
  });
  if (const auto delegate = calledUserEventDelegate()) delegate->userEventDidOccur(event);
  if (skipBI) return;
  KelsoInsight::track(event);
}

}  // namespace orrelo
