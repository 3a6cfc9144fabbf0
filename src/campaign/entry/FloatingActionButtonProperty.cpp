#include "campaign/entry/FloatingActionButtonProperty.h"

#include "base/Json.h"
#include "base/JsonWriter.h"

namespace orrelo {

FloatingActionButtonProperty FloatingActionButtonProperty::decode(std::string_view json) {
  JsonParser parser;
  const auto property = parser.parse(json).objectValue();
  return {property.text("iconUrl"), property.text("color"), property.text("tooltipMessage")};
}

std::string FloatingActionButtonProperty::encode() const {
  JsonWriter json;
  json.beginObject();
  json.field("iconUrl", iconUrl);
  json.field("color", color);
  json.field("tooltipMessage", tooltipMessage);
  json.endObject();
  return std::move(json).result();
}

}  // namespace orrelo
