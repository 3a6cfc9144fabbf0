#pragma once

#include <orrelo/EventValue.h>

#include <string>

namespace orrelo {

/// The form for log lines: texts in quotes, "[1, 2]", "["key": "value"]" sorted by key, "[:]" if empty.
/// Values below the maximum depth are replaced by "…".
std::string description(const EventArray& values);
std::string description(const EventValues& values);

}  // namespace orrelo
