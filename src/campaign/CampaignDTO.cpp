#include "campaign/CampaignDTO.h"

namespace orrelo {

CampaignDTO::PageResponse CampaignDTO::PageResponse::decode(const JsonObject& json) {
  auto type = json.text("page_type");
  auto id = json.text("page_id");
  auto detail = PageDetailDTO::decode(type, json);
  return {std::move(type), std::move(id), std::move(detail)};
}

CampaignDTO::PageResponse CampaignDTO::PageResponse::decode(std::string_view json) {
  JsonParser parser;
  return decode(parser.parse(json).objectValue());
}

CampaignDTO CampaignDTO::decode(const JsonObject& json) {
  return {json.text("id"), json.text("label"), json.text("name"), json.text("icon"),
          PageResponse::decode(json.object("page"))};
}

CampaignDTO CampaignDTO::decode(std::string_view json) {
  JsonParser parser;
  return decode(parser.parse(json).objectValue());
}

std::vector<CampaignDTO> CampaignDTO::decodeList(std::string_view json) {
  JsonParser parser;
  const auto array = parser.parse(json).arrayValue();
  std::vector<CampaignDTO> campaigns;
  campaigns.reserve(array.size());
  array.forEach([&](const JsonValue& row) { campaigns.push_back(decode(row.objectValue())); });
  return campaigns;
}

}  // namespace orrelo
