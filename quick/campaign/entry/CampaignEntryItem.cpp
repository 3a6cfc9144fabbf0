#include "quick/campaign/entry/CampaignEntryItem.h"

namespace orrelo::quick {

void CampaignEntryItem::itemChange(ItemChange change, const ItemChangeData& data) {
  ORLCampaignEntryView::itemChange(change, data);
  // The views let go of items that leave the scene, and take them again when they come back with this item.
  const bool comesBack = change == ItemSceneChange && data.window != nullptr;
  if (comesBack || change == ItemChildAddedChange || change == ItemChildRemovedChange) {
    setClickableViews(childItems());
  }
}

}  // namespace orrelo::quick

#include "moc_CampaignEntryItem.cpp"
