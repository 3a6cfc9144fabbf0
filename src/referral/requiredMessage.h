#pragma once

#include "base/Error.h"
#include "base/Json.h"

#include <optional>
#include <string>

namespace orrelo {

/// The text at the key "message", which must be there; nullopt if it is null. Throws a DecodingError.
inline std::optional<std::string> requiredMessage(const JsonObject& json) {
  if (!json.find("message"))
    throw makeError(DecodingError::keyNotFound, "No value associated with key \"message\".");
  return json.optionalText("message");
}

}  // namespace orrelo
