#include "campaign/attendance/CampaignCalendar.h"

#include "base/TimeZone.h"
#include "network/RFC3339DateParser.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <date/date.h>

namespace orrelo {
namespace {

std::optional<date::year_month> monthOf(int year, int month) {
  if (month < 1 || month > 12) return std::nullopt;
  return date::year(year) / date::month(static_cast<unsigned>(month));
}

int dayCount(date::year_month month) {
  return static_cast<int>(static_cast<unsigned>((month / date::last).day()));
}

// The number of cells before the first of the month in a week that begins on Sunday.
int leadingCells(date::year_month month) {
  return static_cast<int>(date::weekday(date::sys_days(month / 1)).c_encoding());
}

std::vector<CalendarDate> daysOf(date::year_month month, int first, int last) {
  std::vector<CalendarDate> days;
  for (int day = first; day <= last; ++day) {
    days.push_back({int(month.year()), static_cast<int>(static_cast<unsigned>(month.month())), day});
  }
  return days;
}

}  // namespace

int CampaignCalendar::deviceYear() {
  return RFC3339DateParser::year(Platform::current().clock->now(), TimeZone::current());
}

std::vector<CalendarDate> CampaignCalendar::previousMonthTail(int month, int year) const {
  const auto current = monthOf(year, month);
  if (!current) return {};
  const auto previous = *current - date::months(1);
  const int count = dayCount(previous);
  return daysOf(previous, count - leadingCells(*current) + 1, count);
}

std::vector<CalendarDate> CampaignCalendar::monthDays(int month, int year) const {
  const auto current = monthOf(year, month);
  return current ? daysOf(*current, 1, dayCount(*current)) : std::vector<CalendarDate>();
}

std::vector<CalendarDate> CampaignCalendar::nextMonthHead(int month, int year) const {
  const auto current = monthOf(year, month);
  if (!current) return {};
  const int cells = leadingCells(*current) + dayCount(*current);
  return daysOf(*current + date::months(1), 1, (7 - cells % 7) % 7);
}

}  // namespace orrelo
