#pragma once

#include "campaign/list/CampaignListViewController.h"
#include "quick/bridge/ListBridge.h"
#include "quick/bridge/ScreenBridge.h"
#include "quick/campaign/list/CampaignViewCellBridge.h"

#include <QQuickItem>

namespace orrelo::quick {

class CampaignListBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// A CampaignViewCellBridge for each cell.
  Q_PROPERTY(orrelo::quick::ListBridge* cells MEMBER cells CONSTANT)

 public:
  CampaignListBridge(const std::shared_ptr<CampaignListViewController>& screen, QObject* parent);

  ListBridge* const cells;

  /// Tells the core which cells are in sight: the items in `list` that draw them and lie at least in part
  /// between `top` and `bottom`, in coordinates of `list`. Nothing is in sight while `list` is invisible or
  /// the area between the two is empty.
  Q_INVOKABLE void reportSight(QQuickItem* list, double top, double bottom) const;
  /// Called when the cells of a new list are in their places and their sight has been reported.
  Q_INVOKABLE void didLayOut() const { list_->didLayOut(); }
  Q_INVOKABLE void didSelect(orrelo::quick::CampaignViewCellBridge* cell) const;

 Q_SIGNALS:
  /// A list has arrived, which may be equal to the former one.
  void listArrived();

 private:
  void update();

  const std::shared_ptr<CampaignListViewController> list_;
  int loadCount_ = 0;
};

}  // namespace orrelo::quick
