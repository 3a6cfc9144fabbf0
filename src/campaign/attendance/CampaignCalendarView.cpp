#include "campaign/attendance/CampaignCalendarView.h"

#include <utility>
#include <variant>

namespace orrelo {

void CampaignCalendarView::configure(const CampaignCalendar& calendar) {
  cellViewState = orrelo::cellViewState(calendar);
  const auto& descriptions = calendar.descriptions;
  State content{.monthText = std::to_string(calendar.today.month) + "월",
                .firstDescription = descriptions.empty() ? "" : descriptions[0],
                .secondDescription = descriptions.size() < 2 ? "" : descriptions[1],
                .primaryColor = calendar.primaryColor,
                .secondaryColor = calendar.secondaryColor,
                .cells = {}};
  content.cells.reserve(cellViewState.size());
  int day = 0;
  for (const auto& cell : cellViewState) {
    const bool isOfMonth = !std::holds_alternative<CalendarCell::Header>(cell) &&
                           !std::holds_alternative<CalendarCell::Deemed>(cell);
    if (isOfMonth) ++day;
    content.cells.push_back(renderCell(cell, calendar.primaryColor, calendar.secondaryColor, day));
  }
  state.set(std::move(content));
}

std::shared_ptr<ImageView> CampaignCalendarView::iconView(const std::string& url) {
  if (url.empty()) return nullptr;
  auto& view = iconViews_[url];
  if (!view) {
    view = std::make_shared<ImageView>();
    view->load(url);
  }
  return view;
}

}  // namespace orrelo
