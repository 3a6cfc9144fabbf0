#include "quick/image/ImageBridge.h"

namespace orrelo::quick {

ImageBridge::ImageBridge(const std::shared_ptr<ImageView>& view, QObject* parent)
    : ViewBridge(view, parent), image_(*view), autoLayout_(dynamic_cast<AutoLayoutImageView*>(view.get())) {
  follow(image_.state);
  details_.follow(image_.frame.changes(), [this] { Q_EMIT frameChanged(); });
  details_.follow(image_.showsSpinner.changes(), [this] { Q_EMIT playbackChanged(); });
  details_.follow(image_.showsPlayButton.changes(), [this] { Q_EMIT playbackChanged(); });
  if (autoLayout_ == nullptr) return;
  details_.follow(autoLayout_->height.changes(), [this] { Q_EMIT heightChanged(); });
}

ImageBridge::~ImageBridge() {
  if (placements_.empty()) return;
  placements_.clear();
  reportPlacement();
}

QSizeF ImageBridge::size() const {
  const auto& picture = image_.state.value().image;
  return picture ? QSizeF(picture->width(), picture->height()) : QSizeF();
}

ImagePtr ImageBridge::image() const {
  const auto& frame = image_.frame.value();
  return frame ? frame : image_.state.value().image;
}

void ImageBridge::setPlacement(const QQuickItem& item, ImageView::Placement placement) {
  placements_[&item] = placement;
  reportPlacement();
}

void ImageBridge::removePlacement(const QQuickItem& item) {
  if (placements_.erase(&item) > 0) reportPlacement();
}

void ImageBridge::reportPlacement() {
  ImageView::Placement whole{.hasSuperview = false, .isOnScreen = false};
  for (const auto& [item, placement] : placements_) {
    whole.hasSuperview = whole.hasSuperview || placement.hasSuperview;
    whole.isOnScreen = whole.isOnScreen || placement.isOnScreen;
  }
  if (whole != image_.placement()) image_.setPlacement(whole);
}

}  // namespace orrelo::quick

#include "moc_ImageBridge.cpp"
