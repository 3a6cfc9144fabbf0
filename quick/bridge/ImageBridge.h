#pragma once

#include "bridge/KitImages.h"
#include "bridge/ViewBridge.h"
#include "image/ImageView.h"

#include <QUrl>

namespace orrelo::quick {

class ImageBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// For an Image; empty while there is no picture.
  Q_PROPERTY(QUrl source READ source NOTIFY stateChanged)

 public:
  ImageBridge(const std::shared_ptr<ImageView>& view, QObject* parent) : ViewBridge(view, parent), image_(*view) {
    follow(image_.state);
  }

  QUrl source() const {
    const auto state = image_.state.value();
    return state.image ? KitImages::url(state.image) : assetFile(state.asset);
  }

 private:
  const ImageView& image_;
};

}  // namespace orrelo::quick
