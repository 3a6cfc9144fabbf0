#pragma once

#include "base/Color.h"
#include "campaign/attendance/CalendarCellViewState.h"
#include "campaign/attendance/CampaignCalendar.h"
#include "image/ImageView.h"
#include "viewkit/legibility.h"

#include <orrelo/Export.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// The look of a cell of the calendar.
struct CampaignCalendarViewCell {
  /// The number of the day; empty if the icon is shown instead.
  std::string day = {};
  /// The text below the day; usually empty.
  std::string bottomText = {};
  Color dayColor = {};
  Color bottomColor = plainTextColor;
  /// Usually transparent.
  Color backgroundColor{0.0, 0.0, 0.0, 0.0};
  /// In points; 0 if there is no border.
  double borderWidth = 0.0;
  Color borderColor = {};
  /// True if space for the icon is reserved, even if there is no icon.
  bool hasIcon = false;
  std::string iconUrl = {};
  /// The label for assistive technology; empty for cells that it should skip.
  std::string accessibilityLabel = {};

  friend bool operator==(const CampaignCalendarViewCell&, const CampaignCalendarViewCell&) = default;
};

/// The calendar of the month with seven columns.
class ORRELO_EXPORT CampaignCalendarView final : public View {
 public:
  struct State {
    std::string monthText;
    std::string firstDescription;
    /// Shown in the primary colour.
    std::string secondDescription;
    Color primaryColor;
    Color secondaryColor;
    /// The cells row by row; the first row contains the names of the weekdays.
    std::vector<CampaignCalendarViewCell> cells;

    friend bool operator==(const State&, const State&) = default;
  };

  static constexpr auto todayLegend = "오늘";
  static constexpr auto attendanceLegend = "출석";
  static constexpr std::size_t columnCount = 7;

  std::string_view kind() const override { return "CampaignCalendarView"; }

  void configure(const CampaignCalendar& calendar);
  /// The image of the cells with this icon, which starts to load when it is first asked for; null for an
  /// empty URL.
  std::shared_ptr<ImageView> iconView(const std::string& url);

  std::vector<CalendarCellViewState> cellViewState;
  Followed<State> state;

 private:
  std::map<std::string, std::shared_ptr<ImageView>> iconViews_;
};

/// The look of a cell in a state; `day` is the cell's day of the month.
CampaignCalendarViewCell renderCell(const CalendarCellViewState& state, const Color& primary,
                                    const Color& secondary, int day);

}  // namespace orrelo
