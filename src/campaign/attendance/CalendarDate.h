#pragma once

#include <string_view>

namespace orrelo {

/// A day of a calendar; all zero where a text named none, and equal to no real day then.
struct CalendarDate {
  int year = 0;
  int month = 0;
  int day = 0;

  /// Reads "yyyy-MM-dd", exact in width and a real day. Never fails.
  static CalendarDate parse(std::string_view text);

  friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

}  // namespace orrelo
