#include "campaign/attendance/AttendanceCampaignPageDetailDTO.h"

#include "base/JsonFields.h"

namespace orrelo {

AttendanceCampaignPageDetailDTO AttendanceCampaignPageDetailDTO::decode(const JsonObject& json) {
  return {
      .firstTitle = json.text("first_title"),
      .secondTitle = json.text("second_title"),
      .statusMessage = json.text("status_message"),
      .today = json.text("today"),
      .attendedDate = textsOf(json, "attended_date"),
      .highlightDate = textsOf(json, "highlighted_date"),
      .highlightIcon = tolerantText(json, "highlight_icon"),
      .buttonEnable = flexibleBoolean(json, "button_enable"),
      .buttonText = json.text("button_text"),
      .buttonUrl = json.text("button_url"),
      .calendarDescription = textsOf(json, "calendar_description"),
      .color = json.text("color"),
      .highlightColor = json.text("highlight_color"),
      .guideMessage = json.text("guide_message"),
      .notice = textsOf(json, "notice"),
      .imageUrl = tolerantText(json, "image_url"),
      .rewardMessage = tolerantRecord(json, "reward_message", &RewardMessageDTO::decode),
  };
}

}  // namespace orrelo
