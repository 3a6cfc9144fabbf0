#include "network/RFC3339DateParser.h"

#include "base/DateFormat.h"
#include "base/Utf8.h"
#include "base/preconditionFailure.h"

#include <algorithm>
#include <array>
#include <date/date.h>

namespace orrelo {
namespace {

date::year_month_day calendarDay(Date date, const TimeZone& timeZone) {
  const date::sys_time<std::chrono::microseconds> local(date.sinceEpoch() + timeZone.offset(date));
  return date::floor<date::days>(local);
}

}  // namespace

std::optional<Date> RFC3339DateParser::parse(std::string_view text) {
  std::string candidate;
  for (const char c : text) {
    if (c == 'Z' || c == 'z') {
      candidate += "-0000";
    } else {
      candidate += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
  }
  if (utf8::length(candidate) >= 21) {
    // Removes the colon from the zone's offset, but not those of the time before it.
    const auto tail = candidate.begin() + 20;
    candidate.erase(std::remove(tail, candidate.end(), ':'), candidate.end());
  }
  // The order is that of the service protocol; its first format is empty and never matches.
  static constexpr std::array<std::string_view, 3> formats{"", format, "yyyy'-'MM'-'dd'T'HH':'mm':'ssZZZ"};
  for (const auto& each : formats) {
    if (const auto date = parseDate(candidate, each)) return date;
  }
  return std::nullopt;
}

std::optional<Date> RFC3339DateParser::parseSeconds(std::string_view text) {
  constexpr std::size_t width = 19;
  if (utf8::length(text) < width) preconditionFailure("A date has fewer than 19 characters");
  if (const auto date = parseDate(text.substr(0, width), format)) return date;
  return parse(text);
}

int RFC3339DateParser::day(Date date, const TimeZone& timeZone) {
  return static_cast<int>(static_cast<unsigned>(calendarDay(date, timeZone).day()));
}

int RFC3339DateParser::month(Date date, const TimeZone& timeZone) {
  return static_cast<int>(static_cast<unsigned>(calendarDay(date, timeZone).month()));
}

int RFC3339DateParser::year(Date date, const TimeZone& timeZone) {
  return static_cast<int>(calendarDay(date, timeZone).year());
}

std::string RFC3339DateParser::text(Date date) {
  return formatDate(date, format);
}

}  // namespace orrelo
