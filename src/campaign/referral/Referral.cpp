#include "campaign/referral/Referral.h"

#include "base/JsonWriter.h"

namespace orrelo {

Referral Referral::decode(const JsonObject& json) {
  return {json.text("verificationUrl"), json.text("authorizationUrl")};
}

std::string Referral::encode() const {
  return JsonWriter()
      .beginObject()
      .field("verificationUrl", verificationUrl)
      .field("authorizationUrl", authorizationUrl)
      .endObject()
      .result();
}

}  // namespace orrelo
