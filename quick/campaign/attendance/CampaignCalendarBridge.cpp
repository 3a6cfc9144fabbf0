#include "quick/campaign/attendance/CampaignCalendarBridge.h"

#include "quick/campaign/attendance/CalendarCellBridge.h"

namespace orrelo::quick {

CampaignCalendarBridge::CampaignCalendarBridge(const std::shared_ptr<CampaignCalendarView>& view,
                                               QObject* parent)
    : ViewBridge(view, parent), cells(new ListBridge(this)), calendar_(*view) {
  connect(this, &ViewBridge::stateChanged, this, &CampaignCalendarBridge::updateCells);
  follow(calendar_.state);
}

void CampaignCalendarBridge::updateCells() {
  const auto state = calendar_.state.value();  // a copy, since each cell emits a signal
  cells->assignByPosition<CalendarCellBridge>(state.cells, [this](CalendarCellBridge& row, const auto& cell) {
    row.set(cell, iconOf(cell.iconUrl));
  });
}

ImageBridge* CampaignCalendarBridge::iconOf(const std::string& url) {
  const auto view = calendar_.iconView(url);
  if (!view) return nullptr;
  auto& icon = icons_[view];
  if (icon == nullptr) icon = new ImageBridge(view, this);
  return icon;
}

}  // namespace orrelo::quick

#include "moc_CampaignCalendarBridge.cpp"
