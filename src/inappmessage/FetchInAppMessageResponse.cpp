#include "inappmessage/FetchInAppMessageResponse.h"

namespace orrelo {

FetchInAppMessageResponse FetchInAppMessageResponse::decode(std::string_view json) {
  JsonParser parser;
  const auto reply = parser.parse(json).objectValue();
  FetchInAppMessageResponse response{reply.text("type"), {}};
  reply.array("items").forEach([&response](const JsonValue& row) {
    response.items.push_back(InAppMessageDTO::decode(row.objectValue()));
  });
  return response;
}

}  // namespace orrelo
