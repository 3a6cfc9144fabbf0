#pragma once

#include <string_view>

namespace orrelo {

/// A calendar day. All fields are 0 for an invalid date, which is not equal to any real day.
struct CalendarDate {
  int year = 0;
  int month = 0;
  int day = 0;

  /// Parses "yyyy-MM-dd" with exact widths. Returns the invalid date for any other text and for days that do
  /// not exist.
  static CalendarDate parse(std::string_view text);

  friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

}  // namespace orrelo
