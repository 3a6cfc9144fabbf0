#include "quick/campaign/entry/CampaignEntryItem.h"

#include <QQuickWindow>

namespace orrelo::quick {

void CampaignEntryItem::setContent(QQuickItem* content) {
  if (content == content_) return;
  content_ = content;
  connect(content, &QQuickItem::childrenChanged, this, &CampaignEntryItem::takeItems);
  // The items are let go when they leave the scene, and taken again when they come back.
  connect(content, &QQuickItem::windowChanged, this, &CampaignEntryItem::takeItems);
  takeItems();
  Q_EMIT contentChanged();
}

void CampaignEntryItem::takeItems() {
  if (content_) setClickableViews(content_->childItems());
}

}  // namespace orrelo::quick

#include "moc_CampaignEntryItem.cpp"
