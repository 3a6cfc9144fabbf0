#include "campaign/attendance/CampaignCalendarViewCell.h"

#include "campaign/attendance/CampaignCalendarView.h"

#include <optional>
#include <string>
#include <variant>

namespace orrelo {
namespace {

constexpr Color headerColor{0.582, 0.588, 0.592, 1.0};
constexpr Color deemedColor{0.715, 0.717, 0.72, 1.0};
constexpr double strokeWidth = 2.0;

// Builds the look of a cell. An icon replaces the day's number, which stays in the accessibility label.
class CellPainter {
 public:
  CellPainter(const Color& primary, const Color& secondary, int day)
      : primary_(primary), secondary_(secondary), day_(day) {}

  CampaignCalendarViewCell operator()(const CalendarCell::Header& header) const {
    return {.day = header.text, .dayColor = headerColor, .accessibilityLabel = header.text};
  }
  CampaignCalendarViewCell operator()(const CalendarCell::Deemed& cell) const {
    auto neighbour = dayCell(cell.date, deemedColor);
    neighbour.accessibilityLabel.clear();  // it would be announced as a day of this month
    return neighbour;
  }
  CampaignCalendarViewCell operator()(const CalendarCell::Normal& cell) const { return dayCell(cell.date); }
  CampaignCalendarViewCell operator()(const CalendarCell::Today& cell) const {
    return markedToday(stroked(dayCell(cell.date)));
  }
  CampaignCalendarViewCell operator()(const CalendarCell::TodayHighlight& cell) const {
    return markedToday(attended(filled(dayCell(cell.date), primary_)));
  }
  CampaignCalendarViewCell operator()(const CalendarCell::TodayHighlightWithIcon& cell) const {
    return markedToday(attended(filled(iconCell(cell.iconUrl), secondary_)));
  }
  CampaignCalendarViewCell operator()(const CalendarCell::TodayStrokeHighlightWithIcon& cell) const {
    return markedToday(stroked(iconCell(cell.iconUrl)));
  }
  CampaignCalendarViewCell operator()(const CalendarCell::Highlight& cell) const {
    return attended(filled(dayCell(cell.date), primary_));
  }
  CampaignCalendarViewCell operator()(const CalendarCell::HighlightWithIcon& cell) const {
    return attended(filled(iconCell(cell.iconUrl), secondary_));
  }
  CampaignCalendarViewCell operator()(const CalendarCell::StrokeHighlightWithIcon& cell) const {
    return stroked(iconCell(cell.iconUrl));
  }

 private:
  using Cell = CampaignCalendarViewCell;

  static Cell dayCell(const CalendarDate& date, const Color& color = plainTextColor) {
    const auto day = std::to_string(date.day);
    return {.day = day, .dayColor = color, .accessibilityLabel = day + "일"};
  }
  Cell iconCell(const std::optional<std::string>& iconUrl) const {
    return {.hasIcon = true,
            .iconUrl = iconUrl.value_or(""),
            .accessibilityLabel = std::to_string(day_) + "일, 보너스"};
  }
  static Cell filled(Cell cell, const Color& color) {
    cell.backgroundColor = color;
    cell.dayColor = cell.bottomColor = textColorOn(color);
    return cell;
  }
  Cell stroked(Cell cell) const {
    cell.borderWidth = strokeWidth;
    cell.borderColor = primary_;
    return cell;
  }
  static Cell attended(Cell cell) {
    cell.accessibilityLabel += ", 출석";
    return cell;
  }
  static Cell markedToday(Cell cell) {
    cell.bottomText = CampaignCalendarView::todayLegend;
    cell.accessibilityLabel += ", 오늘";
    return cell;
  }

  const Color& primary_;
  const Color& secondary_;
  const int day_;
};

}  // namespace

CampaignCalendarViewCell renderCell(const CalendarCellViewState& state, const Color& primary,
                                    const Color& secondary, int day) {
  return std::visit(CellPainter(primary, secondary, day), state);
}

}  // namespace orrelo
