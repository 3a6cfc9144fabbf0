#pragma once

#include "image/ImageView.h"
#include "quick/bridge/ViewBridge.h"

#include <QSizeF>
#include <QUrl>

namespace orrelo::quick {

class ImageBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The URL of one of the kit's own images; empty if another image or none is shown.
  Q_PROPERTY(QUrl asset READ asset NOTIFY stateChanged)
  /// The size of the loaded image in points; empty until it has been loaded.
  Q_PROPERTY(QSizeF size READ size NOTIFY stateChanged)
  /// True to scale the image to fit the view, false to show it in its own size.
  Q_PROPERTY(bool fits READ fits CONSTANT)
  /// The height that an AutoLayoutImageView derives from its image; 0 for other views.
  Q_PROPERTY(double height READ height NOTIFY heightChanged)

 public:
  ImageBridge(const std::shared_ptr<ImageView>& view, QObject* parent)
      : ViewBridge(view, parent), image_(*view), autoLayout_(dynamic_cast<AutoLayoutImageView*>(view.get())) {
    follow(image_.state);
    if (autoLayout_ == nullptr) return;
    heights_.follow(autoLayout_->height.changes(), [this] { Q_EMIT heightChanged(); });
  }

  QUrl asset() const { return assetFile(image_.state.value().asset); }
  ImagePtr image() const { return image_.state.value().image; }
  QSizeF size() const {
    const auto picture = image();
    return picture ? QSizeF(picture->width(), picture->height()) : QSizeF();
  }

  bool fits() const {
    return autoLayout_ == nullptr ||
           autoLayout_->contentMode == AutoLayoutImageView::ContentMode::scaleAspectFit;
  }
  double height() const { return autoLayout_ != nullptr ? autoLayout_->height.value() : 0.0; }

 Q_SIGNALS:
  void heightChanged();

 private:
  const ImageView& image_;
  const AutoLayoutImageView* const autoLayout_;
  Subscriptions heights_;
};

}  // namespace orrelo::quick
