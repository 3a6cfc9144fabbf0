#include "rewards/gifticon/GifticonRemoteDTO.h"

#include "base/EnumTexts.h"
#include "network/RFC3339DateParser.h"

#include <utility>

namespace orrelo {
namespace {

using MappingError = GifticonRemoteDTO::MappingError;

Gifticon::State stateOf(const GifticonRemoteDTO& dto) {
  if (dto.state == "idle") return Gifticon::Idle();
  if (dto.state == "downloaded" && dto.imageUrl) return Gifticon::Published{*dto.imageUrl};
  if (dto.state == "expired") return Gifticon::Expired();
  if (dto.state == "used") return Gifticon::Used();
  if (dto.state == "canceled") return Gifticon::Canceled();
  throw makeError(MappingError::unknownState);
}

}  // namespace

Error makeError(GifticonRemoteDTO::MappingError error) {
  static constexpr EnumTexts<MappingError, 3> names({
      {MappingError::unknownState, "unknownState"},
      {MappingError::invalidArgument, "invalidArgument"},
      {MappingError::dateParsingError, "dateParsingError"},
  });
  return Error("MappingError", std::string(names.text(error)));
}

GifticonRemoteDTO GifticonRemoteDTO::decode(const JsonObject& json) {
  return {json.text("id"),   json.text("tag_text"), json.text("title"),
          json.text("date"), json.text("state"),    json.optionalText("image_url")};
}

std::vector<GifticonRemoteDTO> GifticonRemoteDTO::decodeList(std::string_view json) {
  JsonParser parser;
  std::vector<GifticonRemoteDTO> rows;
  parser.parse(json).arrayValue().forEach(
      [&](const JsonValue& row) { rows.push_back(decode(row.objectValue())); });
  return rows;
}

Gifticon GifticonRemoteDTO::map() const {
  auto gifticonState = stateOf(*this);
  const auto date = RFC3339DateParser::parse(limitDate);
  if (!date) throw makeError(MappingError::dateParsingError);
  return {id, tagText, title, *date, std::move(gifticonState)};
}

}  // namespace orrelo
