#include "referral/ReferralVerificationResultDTO.h"

#include "referral/requiredMessage.h"

namespace orrelo {

ReferralVerificationResultDTO ReferralVerificationResultDTO::decode(std::string_view json) {
  JsonParser parser;
  const auto reply = parser.parse(json).objectValue();
  return {reply.boolean("result"), requiredMessage(reply)};
}

}  // namespace orrelo
