#pragma once

#include "quick/image/ImageBridge.h"
#include "rewards/gifticon/ZoomImageView.h"

#include <QRectF>

namespace orrelo::quick {

class ZoomImageBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  /// The image's place in the view; empty without an image.
  Q_PROPERTY(QRectF frame READ frame NOTIFY stateChanged)

 public:
  ZoomImageBridge(const std::shared_ptr<ZoomImageView>& view, QObject* parent)
      : ViewBridge(view, parent), image(new ImageBridge(view, this)), zoom_(*view) {
    follow(zoom_.frame);
  }

  ImageBridge* const image;
  const QString accessibilityLabel = toQt(ZoomImageView::accessibilityLabel);

  QRectF frame() const {
    const auto& frame = zoom_.frame.value();
    return {frame.x, frame.y, frame.width, frame.height};
  }

  Q_INVOKABLE void move(double dx, double dy) { zoom_.move(dx, dy); }
  Q_INVOKABLE void turnWheel(double notches, double x, double y) { zoom_.turnWheel(notches, x, y); }
  Q_INVOKABLE void toggle(double x, double y) { zoom_.toggle(x, y); }
  Q_INVOKABLE void beginGesture(double x, double y) { zoom_.beginGesture(x, y); }
  Q_INVOKABLE void continueGesture(double factor, double x, double y) { zoom_.continueGesture(factor, x, y); }

 private:
  ZoomImageView& zoom_;
};

}  // namespace orrelo::quick
