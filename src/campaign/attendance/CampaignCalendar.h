#pragma once

#include "base/Color.h"
#include "campaign/attendance/CalendarDate.h"

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// A month of check-ins. The service provides the highlighted days; the grid is computed on the device.
///
/// The three operations below deliberately use the year of the device's clock, in its time zone, and not the
/// year of `today`. If the years differ, the month is drawn without `today` and highlights. An invalid month
/// has no days.
struct CampaignCalendar {
  CalendarDate today;
  std::vector<CalendarDate> primaryHighlightDates;
  std::vector<CalendarDate> secondaryHighlightDates;
  std::optional<std::string> highlightIconUrl;
  std::vector<std::string> descriptions;
  std::vector<std::string> headers{"일", "월", "화", "수", "목", "금", "토"};
  Color primaryColor;
  Color secondaryColor;

  /// The days of the previous month that complete the first week.
  std::vector<CalendarDate> previousMonthTail(int month, int year = deviceYear()) const;
  std::vector<CalendarDate> monthDays(int month, int year = deviceYear()) const;
  /// The days of the next month that complete the last week.
  std::vector<CalendarDate> nextMonthHead(int month, int year = deviceYear()) const;
  static int deviceYear();

  friend bool operator==(const CampaignCalendar&, const CampaignCalendar&) = default;
};

}  // namespace orrelo
