#include "campaign/entry/FloatingActionButtonPropertyDTO.h"

#include "base/Json.h"

namespace orrelo {

FloatingActionButtonPropertyDTO FloatingActionButtonPropertyDTO::decode(std::string_view json) {
  JsonParser parser;
  const auto reply = parser.parse(json).objectValue();
  return {reply.text("icon"), reply.text("color"), reply.text("tool_tip")};
}

}  // namespace orrelo
