#pragma once

#include "campaign/stamp/StampViewCell.h"
#include "quick/image/ImageBridge.h"

namespace orrelo::quick {

/// A mission of a stamp board.
class StampCellBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString name MEMBER name CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)

 public:
  StampCellBridge(const std::shared_ptr<StampViewCell>& view, QObject* parent)
      : ViewBridge(view, parent), name(toQt(view->name)), image(new ImageBridge(view->imageView, this)) {}

  const QString name;
  ImageBridge* const image;
};

}  // namespace orrelo::quick
