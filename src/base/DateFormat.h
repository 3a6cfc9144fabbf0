#pragma once

#include <orrelo/Date.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// Formats a date by a pattern of these fields: yyyy MM dd HH mm ss SSSSSS, Z or ZZZ (an offset such as
/// "+0900"), and text in single quotes. Other characters are literals. The calendar is that of ISO 8601.
///
/// `offset` is the offset from UTC in which the fields are expressed. Components that the
/// pattern has no field for are dropped.
std::string formatDate(Date date, std::string_view pattern, std::chrono::seconds offset = {});

/// Parses a date by a pattern of the same fields; an offset field in the text takes precedence over `offset`.
/// Returns nullopt unless the text matches the pattern in width and order and is a valid date and time of
/// day. An empty pattern matches no text.
std::optional<Date> parseDate(std::string_view text, std::string_view pattern,
                              std::chrono::seconds offset = {});

}  // namespace orrelo
