#include "campaign/attendance/CalendarCellViewState.h"

#include <algorithm>

namespace orrelo {
namespace {

bool holds(const std::vector<CalendarDate>& dates, const CalendarDate& date) {
  return std::find(dates.begin(), dates.end(), date) != dates.end();
}

// Attended days are filled. Bonus days show the icon, with an outline until they are attended.
CalendarCellViewState stateOf(const CalendarDate& day, const CampaignCalendar& calendar) {
  const bool isToday = day == calendar.today;
  const bool isAttended = holds(calendar.primaryHighlightDates, day);
  const auto& icon = calendar.highlightIconUrl;
  if (holds(calendar.secondaryHighlightDates, day)) {
    if (isAttended && isToday) return CalendarCell::TodayHighlightWithIcon{icon};
    if (isAttended) return CalendarCell::HighlightWithIcon{icon};
    if (isToday) return CalendarCell::TodayStrokeHighlightWithIcon{icon};
    return CalendarCell::StrokeHighlightWithIcon{icon};
  }
  if (isAttended && isToday) return CalendarCell::TodayHighlight{day};
  if (isAttended) return CalendarCell::Highlight{day};
  if (isToday) return CalendarCell::Today{day};
  return CalendarCell::Normal{day};
}

}  // namespace

std::vector<CalendarCellViewState> cellViewState(const CampaignCalendar& calendar) {
  const int month = calendar.today.month;
  const int year = CampaignCalendar::deviceYear();  // read once, so that all cells use the same year
  std::vector<CalendarCellViewState> cells;
  for (const auto& text : calendar.headers) cells.emplace_back(CalendarCell::Header{text});
  for (const auto& day : calendar.previousMonthTail(month, year))
    cells.emplace_back(CalendarCell::Deemed{day});
  for (const auto& day : calendar.monthDays(month, year)) cells.push_back(stateOf(day, calendar));
  for (const auto& day : calendar.nextMonthHead(month, year)) cells.emplace_back(CalendarCell::Deemed{day});
  return cells;
}

}  // namespace orrelo
