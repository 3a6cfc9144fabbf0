#pragma once

#include "quick/image/FramePictures.h"
#include "quick/image/ImageBridge.h"
#include "quick/image/PlacementTracker.h"

#include <QPointer>
#include <QQuickItem>
#include <memory>

namespace orrelo::quick {

/// Draws a loaded image or a frame of an animation, stretched over the item's whole area. It reports where it
/// is while the image is an animation.
class BitmapItem : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::ImageBridge* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)

 public:
  explicit BitmapItem(QQuickItem* parent = nullptr) : QQuickItem(parent) { setFlag(ItemHasContents); }
  ~BitmapItem() override;

  ImageBridge* source() const { return source_; }
  void setSource(ImageBridge* source);

 Q_SIGNALS:
  void sourceChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  void showFrame();

  QPointer<ImageBridge> source_;
  /// Null unless the image is an animation.
  std::unique_ptr<PlacementTracker> tracker_;
  /// Empty while the animation cannot be seen.
  FramePictures frames_;
};

}  // namespace orrelo::quick
