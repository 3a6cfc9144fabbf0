#include "quick/campaign/list/CampaignListBridge.h"

namespace orrelo::quick {

CampaignListBridge::CampaignListBridge(const std::shared_ptr<CampaignListViewController>& screen,
                                       QObject* parent)
    : ScreenBridge(screen, parent), cells(new ListBridge(this)), list_(screen) {
  connect(this, &ScreenBridge::stateChanged, this, &CampaignListBridge::update);
  follow(list_->stateChanges());
}

void CampaignListBridge::update() {
  const auto state = list_->state();  // a copy, since each new row makes a delegate
  cells->assign<CampaignViewCellBridge>(
      state.cells, [](const CampaignViewCellBridge& row, const auto& cell) { return row.cell == cell; },
      [this](const auto& cell) { return new CampaignViewCellBridge(cell, cells); });
  if (std::exchange(loadCount_, state.loadCount) != state.loadCount) Q_EMIT listArrived();
}

void CampaignListBridge::reportSight(QQuickItem* list, double top, double bottom) const {
  const bool isSeen = list->isVisible() && top < bottom;
  const auto items = list->childItems();
  for (const auto* const item : items) {
    const auto* const row = item->property("modelData").value<CampaignViewCellBridge*>();
    if (row == nullptr) continue;
    const bool isInRange = item->y() < bottom && item->y() + item->height() > top;
    list_->setInSight(row->cell, isSeen && isInRange);
  }
}

void CampaignListBridge::didSelect(CampaignViewCellBridge* cell) const {
  const auto keep = list_;  // the tap may close the screen that owns this bridge
  keep->didSelect(*cell->cell);
}

}  // namespace orrelo::quick

#include "moc_CampaignListBridge.cpp"
