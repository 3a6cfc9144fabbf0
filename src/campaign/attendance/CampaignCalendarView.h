#pragma once

#include "base/Color.h"
#include "campaign/attendance/CalendarCellViewState.h"
#include "campaign/attendance/CampaignCalendar.h"
#include "campaign/attendance/CampaignCalendarViewCell.h"
#include "image/ImageView.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

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

}  // namespace orrelo
