#include "campaign/attendance/CalendarDate.h"

#include <algorithm>
#include <date/date.h>

namespace orrelo {
namespace {

int numberOf(std::string_view digits) {
  int number = 0;
  for (const char c : digits) number = number * 10 + (c - '0');
  return number;
}

}  // namespace

// Parsed by hand for speed: a list of campaigns contains several hundred dates.
CalendarDate CalendarDate::parse(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return {};
  const auto year = text.substr(0, 4);
  const auto month = text.substr(5, 2);
  const auto day = text.substr(8, 2);
  for (const auto part : {year, month, day}) {
    if (!std::all_of(part.begin(), part.end(), [](char c) { return c >= '0' && c <= '9'; })) return {};
  }
  const CalendarDate parsed{numberOf(year), numberOf(month), numberOf(day)};
  const auto real = date::year(parsed.year) / parsed.month / parsed.day;
  return real.ok() ? parsed : CalendarDate();
}

}  // namespace orrelo
