#include "campaign/result/CampaignResultPageDTO.h"

#include "base/JsonFields.h"

namespace orrelo {

PopUpDialogDTO PopUpDialogDTO::decode(const JsonObject& json) {
  return {json.text("title"), json.text("label"), json.text("image_url"), json.text("button_text")};
}

CampaignResultPageDTO CampaignResultPageDTO::decode(const JsonObject& json) {
  return {json.text("image_url"), json.text("body"), textsOf(json, "notice"),
          tolerantRecord(json, "pop_up", &PopUpDialogDTO::decode)};
}

}  // namespace orrelo
