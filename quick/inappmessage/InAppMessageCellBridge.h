#pragma once

#include "inappmessage/InAppMessageViewCell.h"
#include "quick/image/ImageBridge.h"

namespace orrelo::quick {

/// One page of the carousel.
class InAppMessageCellBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  Q_PROPERTY(double inset MEMBER inset CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)
  /// Shown in place of a picture that is missing.
  Q_PROPERTY(QUrl placeholder MEMBER placeholder CONSTANT)

 public:
  InAppMessageCellBridge(const std::shared_ptr<InAppMessageViewCell>& view, QObject* parent)
      : ViewBridge(view, parent),
        accessibilityLabel(toQt(view->accessibilityLabel)),
        image(new ImageBridge(view->imageView, this)) {}

  const QString accessibilityLabel;
  const double inset = InAppMessageViewCell::inset;
  ImageBridge* const image;
  const QUrl placeholder = assetFile(InAppMessageViewCell::placeholderAsset);
};

}  // namespace orrelo::quick
