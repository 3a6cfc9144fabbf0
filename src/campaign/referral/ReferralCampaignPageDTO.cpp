#include "campaign/referral/ReferralCampaignPageDTO.h"

#include "base/JsonFields.h"

namespace orrelo {

ReferralCampaignPageDTO ReferralCampaignPageDTO::decode(const JsonObject& json) {
  return {
      .firstTitle = json.text("first_title"),
      .secondTitle = json.text("second_title"),
      .statusMessage = json.text("status_message"),
      .buttonText = json.text("button_text"),
      .code = json.text("code"),
      .codeDescription = json.text("code_description"),
      .navigateEnabled = json.boolean("navigate_enable"),
      .referralMessage = json.text("referral_message"),
      .notice = textsOf(json, "notice"),
      .color = json.text("color"),
      .highlightColor = json.text("highlight_color"),
      .guideMessage = json.text("guide_message"),
      // The service deliberately names them so: a code is "input" to verify it and "validated" to authorize
      // it.
      .verificationUrl = json.text("input_url"),
      .authorizationUrl = json.text("validate_url"),
      .errorMessage = json.text("error_message"),
      .currentRegistered = json.integer("current_registered"),
  };
}

}  // namespace orrelo
