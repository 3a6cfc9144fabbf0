#pragma once

#include <orrelo/quick/ORLCampaignEntryView.h>

#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// The entry view of OrreloCampaignEntryView.qml: all items in it are clickable.
class CampaignEntryItem : public orrelo::quick::ORLCampaignEntryView {
  Q_OBJECT
  QML_ELEMENT

 public:
  using ORLCampaignEntryView::ORLCampaignEntryView;

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;
};

}  // namespace orrelo::quick
