#include "campaign/optinmarketing/OptInMarketingCampaignPageDetailDTO.h"

#include "base/JsonFields.h"

namespace orrelo {

OptInMarketingCampaignPageDetailDTO OptInMarketingCampaignPageDetailDTO::decode(const JsonObject& json) {
  return {
      .imageUrl = json.text("image_url"),
      .buttonEnable = flexibleBoolean(json, "button_enable"),
      .buttonText = json.text("button_text"),
      .buttonVisibility = flexibleBoolean(json, "button_visibility"),
      .color = json.text("color"),
      .notice = textsOf(json, "notice"),
  };
}

}  // namespace orrelo
