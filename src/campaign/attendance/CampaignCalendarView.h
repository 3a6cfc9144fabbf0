#pragma once

#include "base/Color.h"
#include "campaign/attendance/CalendarCellViewState.h"
#include "campaign/attendance/CampaignCalendar.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <string>
#include <vector>

namespace orrelo {

/// How a cell of the calendar looks.
struct CampaignCalendarViewCell {
  /// Empty where the icon stands in its place.
  std::string day = {};
  /// Under the day; empty mostly.
  std::string bottomText = {};
  Color dayColor = {};
  /// Transparent mostly.
  Color backgroundColor{0.0, 0.0, 0.0, 0.0};
  /// In points; 0 where there is no border.
  double borderWidth = 0.0;
  Color borderColor = {};
  /// Whether the icon's place is there, be there an icon or not.
  bool hasIcon = false;
  std::string iconUrl = {};
  /// What assistive technology says of the cell; empty where it passes it over.
  std::string accessibilityLabel = {};

  friend bool operator==(const CampaignCalendarViewCell&, const CampaignCalendarViewCell&) = default;
};

/// The month, seven columns wide, with the days that count.
class ORRELO_EXPORT CampaignCalendarView final : public View {
 public:
  struct State {
    std::string monthText;
    std::string firstDescription;
    /// In the primary colour.
    std::string secondDescription;
    Color primaryColor;
    Color secondaryColor;
    /// Row by row, the weekdays' names first.
    std::vector<CampaignCalendarViewCell> cells;

    friend bool operator==(const State&, const State&) = default;
  };

  static constexpr auto todayLegend = "오늘";
  static constexpr auto attendanceLegend = "출석";
  static constexpr Color legendTextColor{0.239, 0.243, 0.247, 1.0};
  static constexpr std::size_t columnCount = 7;
  // Shares of a cell's height.
  static constexpr double dayFontShare = 1.0 / 2.5;
  static constexpr double bottomFontShare = 1.0 / 3.5;
  static constexpr double iconShare = 1.0 / 1.5;

  std::string_view kind() const override { return "CampaignCalendarView"; }

  void configure(const CampaignCalendar& calendar);

  std::vector<CalendarCellViewState> cellViewState;
  Followed<State> state;
};

/// The look of a cell in a state; `day` is the day of the month that it stands for.
CampaignCalendarViewCell renderCell(const CalendarCellViewState& state, const Color& primary,
                                    const Color& secondary, int day);

}  // namespace orrelo
