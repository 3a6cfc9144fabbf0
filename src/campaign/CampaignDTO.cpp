#include "campaign/CampaignDTO.h"

namespace orrelo {
namespace {

// Allocating a parser costs more than parsing a usual reply, so each thread keeps one for those. `read` must
// not parse another document meanwhile.
template <class Read>
auto readDocument(std::string_view json, Read read) {
  constexpr std::size_t usualSize = std::size_t{256} * 1024;
  if (json.size() > usualSize) {
    JsonParser parser;
    return read(parser.parse(json));
  }
  thread_local JsonParser parser(usualSize);
  return read(parser.parse(json));
}

}  // namespace

CampaignDTO::PageResponse CampaignDTO::PageResponse::decode(const JsonObject& json) {
  const auto type = json.text("page_type");
  return {type, json.text("page_id"), PageDetailDTO::decode(type, json)};
}

CampaignDTO::PageResponse CampaignDTO::PageResponse::decode(std::string_view json) {
  return readDocument(json, [](const JsonValue& body) { return decode(body.objectValue()); });
}

CampaignDTO CampaignDTO::decode(const JsonObject& json) {
  return {json.text("id"), json.text("label"), json.text("name"), json.text("icon"),
          PageResponse::decode(json.object("page"))};
}

CampaignDTO CampaignDTO::decode(std::string_view json) {
  return readDocument(json, [](const JsonValue& campaign) { return decode(campaign.objectValue()); });
}

void CampaignDTO::visitList(std::string_view json,
                            const std::function<void(std::size_t, CampaignDTO&&)>& visit) {
  readDocument(json, [&visit](const JsonValue& list) {
    const auto rows = list.arrayValue();
    rows.forEach(
        [&visit, count = rows.size()](const JsonValue& row) { visit(count, decode(row.objectValue())); });
  });
}

}  // namespace orrelo
