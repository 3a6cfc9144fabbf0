#include "quick/image/BitmapItem.h"

#include "quick/image/PictureTexture.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <memory>
#include <utility>

namespace orrelo::quick {
namespace {

class PictureNode final : public QSGNode {
 public:
  explicit PictureNode(QSGImageNode* picture) : picture_(picture) {
    picture_->setFiltering(QSGTexture::Linear);
    appendChildNode(picture_);
  }

  void show(std::shared_ptr<const PictureTexture> texture, const QRectF& rect) {
    if (texture != texture_) picture_->setTexture(texture->texture());
    texture_ = std::move(texture);  // releases the former one, which the node no longer uses
    picture_->setRect(rect);
  }

 private:
  QSGImageNode* picture_;
  std::shared_ptr<const PictureTexture> texture_;
};

}  // namespace

BitmapItem::BitmapItem(QQuickItem* parent)
    : QQuickItem(parent),
      tracker_(*this, [this](const PlacementTracker::Place& place) { takePlace(place); }) {
  setFlag(ItemHasContents);
}

BitmapItem::~BitmapItem() {
  if (source_) source_->removePlacement(*this);
}

void BitmapItem::setSource(ImageBridge* source) {
  if (source == source_) return;
  reportsPlacement_ = false;
  if (source_) {
    source_->disconnect(this);
    source_->removePlacement(*this);
  }
  source_ = source;
  if (source_) {
    connect(source_, &ViewBridge::stateChanged, this, &QQuickItem::update);
    connect(source_, &ImageBridge::frameChanged, this, &BitmapItem::showFrame);
    showFrame();
  }
  update();
  Q_EMIT sourceChanged();
}

void BitmapItem::setCornerRadius(double radius) {
  if (radius == cornerRadius_) return;
  cornerRadius_ = radius;
  update();
  Q_EMIT cornerRadiusChanged();
}

void BitmapItem::takePlace(const PlacementTracker::Place& place) {
  const bool isDrawn = place.isInSight || (isDrawn_ && place.isNearSight);
  if (isDrawn != std::exchange(isDrawn_, isDrawn)) update();
  if (place.placement == std::exchange(placement_, place.placement)) return;
  if (reportsPlacement_ && source_) source_->setPlacement(*this, placement_);
}

void BitmapItem::showFrame() {
  const bool isAnimated = source_->isAnimated();
  if (isAnimated && !reportsPlacement_) source_->setPlacement(*this, placement_);
  reportsPlacement_ = isAnimated;
  update();
}

QSGNode* BitmapItem::updatePaintNode(QSGNode* former, UpdatePaintNodeData*) {
  auto* node = static_cast<PictureNode*>(former);
  const auto image = source_ ? source_->image() : nullptr;
  if (!isDrawn_ || !image || !image->bitmap.pixels || width() <= 0 || height() <= 0) {
    delete node;
    return nullptr;
  }
  if (node == nullptr) node = new PictureNode(window()->createImageNode());
  const double ratio = window()->effectiveDevicePixelRatio();
  const auto pixels = (size() * ratio).toSize();
  node->show(cornerRadius_ > 0
                 ? PictureTexture::rounded(*window(), image, pixels, qRound(cornerRadius_ * ratio))
                 : PictureTexture::of(*window(), image, pixels),
             boundingRect());
  return node;
}

}  // namespace orrelo::quick

#include "moc_BitmapItem.cpp"
