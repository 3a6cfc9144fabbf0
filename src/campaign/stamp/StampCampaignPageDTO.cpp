#include "campaign/stamp/StampCampaignPageDTO.h"

#include "base/Error.h"
#include "base/JsonFields.h"

namespace orrelo {
namespace {

std::optional<std::vector<std::string>> tolerantTexts(const JsonObject& json, std::string_view key) {
  try {
    return textsOf(json, key);
  } catch (const Error& error) {
    if (const auto value = json.find(key); value && !value->isNull()) explainLeftOut(*value, error);
    return std::nullopt;
  }
}

}  // namespace

StampCampaignPageDTO::MissionDTO StampCampaignPageDTO::MissionDTO::decode(const JsonObject& json) {
  return {json.text("name"), json.text("icon_url")};
}

StampCampaignPageDTO::StampDTO StampCampaignPageDTO::StampDTO::decode(const JsonObject& json) {
  StampDTO stamp{json.integer("column_count"), {}};
  json.array("missions").forEach([&](const JsonValue& row) {
    stamp.mission.push_back(MissionDTO::decode(row.objectValue()));
  });
  return stamp;
}

StampCampaignPageDTO StampCampaignPageDTO::decode(const JsonObject& json) {
  return {
      .stampDTO = StampDTO::decode(json.object("stamp")),
      .layoutDTO = {textsOf(json.object("layout"), "component_order")},
      .mainImageUrl = tolerantText(json, "main_image_url"),
      .subImageUrl = tolerantText(json, "sub_image_url"),
      .firstTitle = tolerantText(json, "first_title"),
      .secondTitle = tolerantText(json, "second_title"),
      .guideMessage = tolerantText(json, "guide_message"),
      .notice = tolerantTexts(json, "notice"),
  };
}

}  // namespace orrelo
