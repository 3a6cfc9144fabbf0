#pragma once

#include "base/JsonWriter.h"

#include <string>

namespace orrelo {

/// The body of the request that saves a token.
struct SaveTokenRequest {
  std::string token;
  std::string userId;

  std::string encode() const {
    return JsonWriter().beginObject().field("token", token).field("buid", userId).endObject().result();
  }
};

}  // namespace orrelo
