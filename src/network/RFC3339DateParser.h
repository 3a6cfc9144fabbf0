#pragma once

#include "base/TimeZone.h"

#include <orrelo/Date.h>

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// The dates of the service protocol. A text without a zone is in UTC.
class RFC3339DateParser {
 public:
  /// The format for writing: whole seconds in UTC, without a zone.
  static constexpr std::string_view format = "yyyy'-'MM'-'dd'T'HH':'mm':'ss";

  /// Parses whole seconds with or without a zone ("Z", "+09:00"); nullopt if there is a fraction of a second.
  static std::optional<Date> parse(std::string_view text);

  /// Parses the first 19 characters as seconds in UTC and ignores the rest; if that fails, parses the whole
  /// text like `parse`. Aborts the process if the text has fewer than 19 characters.
  static std::optional<Date> parseSeconds(std::string_view text);

  /// The parts of the date in the calendar of ISO 8601.
  static int day(Date date, const TimeZone& timeZone);
  static int month(Date date, const TimeZone& timeZone);
  static int year(Date date, const TimeZone& timeZone);

  /// The date in `format`, truncated to its second.
  static std::string text(Date date);
};

}  // namespace orrelo
