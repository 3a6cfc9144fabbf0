#pragma once

#include "quick/image/ImageBridge.h"

#include <QPointer>
#include <QQuickItem>

namespace orrelo::quick {

/// Draws a loaded image stretched over the item's whole area.
class BitmapItem : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::ImageBridge* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)

 public:
  explicit BitmapItem(QQuickItem* parent = nullptr) : QQuickItem(parent) { setFlag(ItemHasContents); }

  ImageBridge* source() const { return source_; }
  void setSource(ImageBridge* source);

 Q_SIGNALS:
  void sourceChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QPointer<ImageBridge> source_;
};

}  // namespace orrelo::quick
