#include "rewards/RewardCountDTO.h"

#include "base/Json.h"

namespace orrelo {

RewardCountDTO RewardCountDTO::decode(std::string_view json) {
  JsonParser parser;
  const auto reply = parser.parse(json).objectValue();
  return {reply.integer("point"), reply.integer("ticket"), reply.integer("gifticon")};
}

}  // namespace orrelo
