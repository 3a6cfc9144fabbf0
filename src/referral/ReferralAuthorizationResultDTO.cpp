#include "referral/ReferralAuthorizationResultDTO.h"

#include "referral/requiredMessage.h"

namespace orrelo {

ReferralAuthorizationResultDTO ReferralAuthorizationResultDTO::decode(std::string_view json) {
  JsonParser parser;
  const auto reply = parser.parse(json).objectValue();
  return {reply.boolean("result"), requiredMessage(reply),
          RewardMessageDTO::decode(reply.object("reward_message"))};
}

}  // namespace orrelo
