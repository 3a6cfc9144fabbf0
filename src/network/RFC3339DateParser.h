#pragma once

#include "base/TimeZone.h"

#include <orrelo/Date.h>

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// The dates of the service protocol. Text is UTC where it names no zone.
class RFC3339DateParser {
 public:
  /// What every writer uses: whole seconds of UTC, without a zone.
  static constexpr std::string_view format = "yyyy'-'MM'-'dd'T'HH':'mm':'ss";

  /// Seconds, with a zone ("Z", "+09:00") or without; a fraction of a second gives nothing.
  static std::optional<Date> parse(std::string_view text);

  /// The first 19 characters as seconds of UTC, whatever follows them; else as `parse`.
  /// Stops the process for a text of fewer than 19 characters.
  static std::optional<Date> parseSeconds(std::string_view text);

  /// In ISO 8601's calendar.
  static int day(Date date, const TimeZone& timeZone);
  static int month(Date date, const TimeZone& timeZone);
  static int year(Date date, const TimeZone& timeZone);

  /// The date in `format`, truncated to its second.
  static std::string text(Date date);
};

}  // namespace orrelo
