#pragma once

#include "base/Color.h"
#include "campaign/attendance/CalendarDate.h"

#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// A month of check-ins. The service says which days count; the grid around them is the device's.
///
/// The three operations below are meant for the year of the device's clock, in its time zone, and not for
/// that of `today`. That is deliberate: where the two differ, the month is drawn, but neither `today` nor a
/// highlight is in it. A month that no calendar has gives no dates.
struct CampaignCalendar {
  CalendarDate today;
  std::vector<CalendarDate> primaryHighlightDates;
  std::vector<CalendarDate> secondaryHighlightDates;
  std::optional<std::string> highlightIconUrl;
  std::vector<std::string> descriptions;
  std::vector<std::string> headers{"일", "월", "화", "수", "목", "금", "토"};
  Color primaryColor;
  Color secondaryColor;

  /// The days of the month before that fill up the first week.
  std::vector<CalendarDate> previousMonthTail(int month, int year = deviceYear()) const;
  std::vector<CalendarDate> monthDays(int month, int year = deviceYear()) const;
  /// The days of the month after that fill up the last week.
  std::vector<CalendarDate> nextMonthHead(int month, int year = deviceYear()) const;
  static int deviceYear();

  friend bool operator==(const CampaignCalendar&, const CampaignCalendar&) = default;
};

}  // namespace orrelo
