#include "campaign/RewardMessageDTO.h"

namespace orrelo {

RewardMessageDTO RewardMessageDTO::decode(const JsonObject& json) {
  return {json.text("title"), json.text("body"), json.text("button_text")};
}

}  // namespace orrelo
