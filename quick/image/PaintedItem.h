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
  bool isDrawn() const { return isDrawn_; }
  /// Called on the main thread before the item is painted for the first time and after it was out of sight.
  virtual void comeIntoSight() {}
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  bool isDrawn_ = false;
  PlacementTracker tracker_;
};

}  // namespace orrelo::quick
