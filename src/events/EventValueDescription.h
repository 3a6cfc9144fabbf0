#pragma once

#include <orrelo/EventValue.h>

#include <string>

namespace orrelo {

/// For log lines: texts in quotes, "[1, 2]", "["key": "value"]" in the order of the keys, "[:]" for no keys.
std::string description(const EventValue& value);
std::string description(const EventValues& values);

}  // namespace orrelo
