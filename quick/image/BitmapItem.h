#pragma once

#include "quick/image/ImageBridge.h"
#include "quick/image/PlacementTracker.h"

#include <QPointer>
#include <QQuickItem>

namespace orrelo::quick {

/// Draws a loaded image or a frame of an animation, stretched over the item's whole area. It has a texture
/// only in and near sight, and reports where it is while the image is an animation.
class BitmapItem : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::ImageBridge* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
  /// If positive, the middle of the image covers the area in its own aspect ratio, with rounded corners of
  /// this radius.
  Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY cornerRadiusChanged)

 public:
  explicit BitmapItem(QQuickItem* parent = nullptr);
  ~BitmapItem() override;

  ImageBridge* source() const { return source_; }
  void setSource(ImageBridge* source);
  double cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(double radius);

 Q_SIGNALS:
  void sourceChanged();
  void cornerRadiusChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  void takePlace(const PlacementTracker::Place& place);
  void showFrame();

  QPointer<ImageBridge> source_;
  double cornerRadius_ = 0.0;
  /// True while the image is an animation.
  bool reportsPlacement_ = false;
  ImageView::Placement placement_;
  bool isDrawn_ = false;
  PlacementTracker tracker_;
};

}  // namespace orrelo::quick
