#pragma once

#include "base/JsonWriter.h"
#include "base/Utf8.h"

#include <string>

namespace orrelo {

/// The body of the request that authorizes a friend's verified code.
struct ReferralAuthorizationRequest {
  std::string code;

  std::string encode() const {
    return JsonWriter().beginObject().field("code", utf8::repaired(code)).endObject().result();
  }
};

}  // namespace orrelo
