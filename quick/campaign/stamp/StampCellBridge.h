#pragma once

#include "campaign/stamp/StampCampaignView.h"
#include "quick/image/ImageBridge.h"

namespace orrelo::quick {

/// A mission of a stamp board.
class StampCellBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)

 public:
  StampCellBridge(const std::shared_ptr<StampViewCell>& view, QObject* parent)
      : ViewBridge(view, parent), cell_(*view), image_(new ImageBridge(view->imageView, this)) {}

  QString name() const { return toQt(cell_.name); }
  ImageBridge* image() const { return image_; }

 private:
  const StampViewCell& cell_;
  ImageBridge* const image_;
};

}  // namespace orrelo::quick
