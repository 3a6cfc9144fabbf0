#pragma once

#include "base/Json.h"

#include <string>

namespace orrelo {

/// The place of a value in its document as a JSON pointer (RFC 6901), such as "/page/button/1". Costs a walk
/// through the value's ancestors and their children.
std::string jsonPointer(const JsonValue& value);
std::string jsonPointer(const JsonObject& object);

}  // namespace orrelo
