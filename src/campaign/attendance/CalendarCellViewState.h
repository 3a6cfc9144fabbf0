#pragma once

#include "campaign/attendance/CampaignCalendar.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orrelo {

/// The states of a cell in the calendar's grid.
struct CalendarCell {
  struct Header {
    std::string text;
    friend bool operator==(const Header&, const Header&) = default;
  };
  /// A day of the previous or the next month.
  struct Deemed {
    CalendarDate date;
    friend bool operator==(const Deemed&, const Deemed&) = default;
  };
  struct Normal {
    CalendarDate date;
    friend bool operator==(const Normal&, const Normal&) = default;
  };
  struct Today {
    CalendarDate date;
    friend bool operator==(const Today&, const Today&) = default;
  };
  struct TodayHighlight {
    CalendarDate date;
    friend bool operator==(const TodayHighlight&, const TodayHighlight&) = default;
  };
  struct TodayHighlightWithIcon {
    std::optional<std::string> iconUrl;
    friend bool operator==(const TodayHighlightWithIcon&, const TodayHighlightWithIcon&) = default;
  };
  struct TodayStrokeHighlightWithIcon {
    std::optional<std::string> iconUrl;
    friend bool operator==(const TodayStrokeHighlightWithIcon&,
                           const TodayStrokeHighlightWithIcon&) = default;
  };
  struct Highlight {
    CalendarDate date;
    friend bool operator==(const Highlight&, const Highlight&) = default;
  };
  struct HighlightWithIcon {
    std::optional<std::string> iconUrl;
    friend bool operator==(const HighlightWithIcon&, const HighlightWithIcon&) = default;
  };
  struct StrokeHighlightWithIcon {
    std::optional<std::string> iconUrl;
    friend bool operator==(const StrokeHighlightWithIcon&, const StrokeHighlightWithIcon&) = default;
  };
};

using CalendarCellViewState =
    std::variant<CalendarCell::Header, CalendarCell::Deemed, CalendarCell::Normal, CalendarCell::Today,
                 CalendarCell::TodayHighlight, CalendarCell::TodayHighlightWithIcon,
                 CalendarCell::TodayStrokeHighlightWithIcon, CalendarCell::Highlight,
                 CalendarCell::HighlightWithIcon, CalendarCell::StrokeHighlightWithIcon>;

/// The grid of the calendar's month with seven cells per row: the headers, then whole weeks.
std::vector<CalendarCellViewState> cellViewState(const CampaignCalendar& calendar);

}  // namespace orrelo
