#pragma once

#include "base/Color.h"
#include "base/TimeZone.h"
#include "rewards/point/PointRedemptionHistory.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// The texts of a row of the history.
struct ORRELO_EXPORT PointRedemptionHistoryViewCell {
  /// Month and day; empty if the row's date cannot be read.
  std::string date;
  std::string title;
  std::string body;
  std::string amount;
  std::string unit;
  /// The colour of the amount and its unit.
  Color amountColor;
  /// The texts for assistive technology.
  std::string accessibilityLabel;

  static constexpr Color spentColor{0.071, 0.565, 1.0, 1.0};
  static constexpr Color gainedColor{1.0, 0.387, 0.387, 1.0};

  /// The date is taken in `timezone`.
  static PointRedemptionHistoryViewCell of(const PointRedemptionHistory& history, const std::string& unit,
                                           const TimeZone& timezone);

  friend bool operator==(const PointRedemptionHistoryViewCell&,
                         const PointRedemptionHistoryViewCell&) = default;
};

}  // namespace orrelo
