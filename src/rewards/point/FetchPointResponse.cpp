#include "rewards/point/FetchPointResponse.h"

#include "base/Json.h"

namespace orrelo {

FetchPointResponse FetchPointResponse::decode(std::string_view json) {
  JsonParser parser;
  const auto reply = parser.parse(json).objectValue();
  return {reply.integer("amount"), reply.text("description"), reply.text("point_unit"),
          reply.text("icon_url")};
}

}  // namespace orrelo
