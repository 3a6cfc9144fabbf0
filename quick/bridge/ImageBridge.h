#pragma once

#include "image/ImageView.h"
#include "quick/bridge/ViewBridge.h"

#include <QSizeF>
#include <QUrl>

namespace orrelo::quick {

class ImageBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// One of the kit's own pictures; empty where another is shown, or none.
  Q_PROPERTY(QUrl asset READ asset NOTIFY stateChanged)
  /// Of a loaded picture, in points; empty until it is there.
  Q_PROPERTY(QSizeF size READ size NOTIFY stateChanged)

 public:
  ImageBridge(const std::shared_ptr<ImageView>& view, QObject* parent)
      : ViewBridge(view, parent), image_(*view) {
    follow(image_.state);
  }

  QUrl asset() const { return assetFile(image_.state.value().asset); }
  ImagePtr image() const { return image_.state.value().image; }
  QSizeF size() const {
    const auto picture = image();
    return picture ? QSizeF(picture->width(), picture->height()) : QSizeF();
  }

 private:
  const ImageView& image_;
};

}  // namespace orrelo::quick
