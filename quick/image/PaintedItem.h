#pragma once

#include "quick/image/PlacementTracker.h"

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// An item that is painted when it comes into sight. Out of sight it takes neither time nor memory for its
/// pixels.
class PaintedItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit PaintedItem(QQuickItem* parent = nullptr);

 protected:
  bool isInSight() const { return isInSight_; }
  /// Called on the main thread before the first frame in which the item is in sight.
  virtual void comeIntoSight() {}
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  bool isInSight_ = false;
  PlacementTracker tracker_;
};

}  // namespace orrelo::quick
