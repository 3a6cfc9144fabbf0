#include "events/UserEventTracker.h"

#include "core/base/Logger.h"
#include "core/model/Delegates.h"
#include "events/EventValueDescription.h"
#include "events/KelsoInsight.h"

#include <algorithm>
#include <array>

namespace orrelo {
namespace {

constexpr std::array<std::string_view, 5> valueKeys{
    "campaign_id", "campaign_type", "campaign_entry_point_name", "reward_tab_item_name", "page_name"};

constexpr std::array<std::string_view, 27> eventNames{
    "ol_attendance_button_click",
    "ol_campaign_entry_point_show",
    "ol_campaign_entry_point_click",
    "ol_campaign_participate_button_click",
    "ol_campaign_list_item_show",
    "ol_campaign_list_item_click",
    "ol_tooltip_show",
    "ol_opt_in_marketing_move_button_click",
    "ol_visit",
    "ol_point_view_show",
    "ol_point_view_click",
    "ol_referral_copy_code_button_click",
    "ol_referral_navigation_view_click",
    "ol_referral_navigation_view_show",
    "ol_referral_sharing_button_click",
    "ol_referral_code_authorize_button_click",
    "ol_referral_code_confirm_button_click",
    "ol_referral_code_authorized",
    "ol_referral_code_confirmed",
    "ol_reward_pop_up_show",
    "ol_reward_tab_show",
    "ol_reward_tab_item_click",
    "ol_roulette_spin_wheel_end",
    "ol_roulette_spin_wheel_start",
    "ol_scratch_lottery_scratch_block",
    "ol_scratch_lottery_scratch_end",
    "ol_induce_update_button_click",
};

}  // namespace

std::string_view rawValue(UserEventValueKey key) {
  return valueKeys.at(static_cast<std::size_t>(key));
}

std::optional<UserEventValueKey> userEventValueKey(std::string_view rawValue) {
  const auto found = std::find(valueKeys.begin(), valueKeys.end(), rawValue);
  if (found == valueKeys.end()) return std::nullopt;
  return static_cast<UserEventValueKey>(found - valueKeys.begin());
}

std::string_view rawValue(UserEventName name) {
  return eventNames.at(static_cast<std::size_t>(name));
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
           " values:" + description(event.values.value_or(EventValues()));
  });
  if (const auto delegate = userEventDelegate()) delegate->userEventDidOccur(event);
  if (skipBI) return;
  if (const auto insight = KelsoInsight::instance()) insight->save(toBIEvent(event));
}

}  // namespace orrelo
