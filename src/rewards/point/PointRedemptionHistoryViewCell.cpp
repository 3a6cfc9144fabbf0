#include "rewards/point/PointRedemptionHistoryViewCell.h"

#include "base/numberText.h"
#include "network/RFC3339DateParser.h"
#include "rewards/point/amountText.h"
#include "viewkit/joinedLabel.h"

namespace orrelo {
namespace {

std::string dateText(const std::string& text, const TimeZone& timezone) {
  const auto date = RFC3339DateParser::parse(text);
  if (!date) return {};
  return numberText(std::int64_t{RFC3339DateParser::month(*date, timezone)}) + "." +
         numberText(std::int64_t{RFC3339DateParser::day(*date, timezone)});
}

}  // namespace

PointRedemptionHistoryViewCell PointRedemptionHistoryViewCell::of(const PointRedemptionHistory& history,
                                                                  const std::string& unit,
                                                                  const TimeZone& timezone) {
  PointRedemptionHistoryViewCell cell{.date = dateText(history.date, timezone),
                                      .title = history.title,
                                      .body = history.body,
                                      .amount = numberText(history.amount),
                                      .unit = unit,
                                      .amountColor = history.amount < 0 ? spentColor : gainedColor,
                                      .accessibilityLabel = {}};
  cell.accessibilityLabel = joinedLabel(joinedLabel(cell.date, joinedLabel(cell.title, cell.body)),
                                        amountText(history.amount, unit));
  return cell;
}

}  // namespace orrelo
