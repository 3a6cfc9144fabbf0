#pragma once

#include <orrelo/EventValue.h>

#include <string>

namespace orrelo {

/// For log lines: texts in quotes, "[1, 2]", "["key": "value"]" in the order of the keys, "[:]" for no keys.
/// What is nested deeper than a log line is read for is "…".
std::string description(const EventArray& values);
std::string description(const EventValues& values);

}  // namespace orrelo
