#pragma once

#include <orrelo/Date.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// Writes and reads dates by a pattern of these fields: yyyy MM dd HH mm ss SSSSSS, Z or ZZZ (an offset as
/// "+0900"), and text in single quotes. Other characters stand for themselves. The calendar is ISO 8601's.
///
/// The offset is the zone in which the fields are told; a parsed offset field wins over it. Writing truncates
/// what the pattern has no field for.
std::string formatDate(Date date, std::string_view pattern, std::chrono::seconds offset = {});

/// Exact in width and in order, and a real date and time of day, else nothing. An empty pattern matches
/// nothing.
std::optional<Date> parseDate(std::string_view text, std::string_view pattern,
                              std::chrono::seconds offset = {});

}  // namespace orrelo
