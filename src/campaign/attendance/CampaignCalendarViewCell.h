#pragma once

#include "base/Color.h"
#include "campaign/attendance/CalendarCellViewState.h"
#include "viewkit/legibility.h"

#include <string>

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

/// The look of a cell in a state; `day` is the cell's day of the month.
CampaignCalendarViewCell renderCell(const CalendarCellViewState& state, const Color& primary,
                                    const Color& secondary, int day);

}  // namespace orrelo
