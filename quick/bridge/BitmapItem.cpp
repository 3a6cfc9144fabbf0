#include "quick/bridge/BitmapItem.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>

namespace orrelo::quick {
namespace {

// Shares the pixels, which live as long as the image.
QImage toQt(const ImagePtr& image) {
  const auto& bitmap = image->bitmap;
  return {bitmap.pixels.get(),
          bitmap.width,
          bitmap.height,
          qsizetype{bitmap.width} * Bitmap::bytesPerPixel,
          QImage::Format_RGBA8888_Premultiplied,
          [](void* kept) { delete static_cast<ImagePtr*>(kept); },
          new ImagePtr(image)};
}

}  // namespace

void BitmapItem::setSource(ImageBridge* source) {
  if (source == source_) return;
  if (source_) source_->disconnect(this);
  source_ = source;
  if (source_) connect(source_, &ViewBridge::stateChanged, this, &BitmapItem::redraw);
  redraw();
  Q_EMIT sourceChanged();
}

void BitmapItem::redraw() {
  isStale_ = true;
  update();
}

QSGNode* BitmapItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  auto* picture = static_cast<QSGImageNode*>(node);
  const auto image = source_ ? source_->image() : nullptr;
  if (!image || !image->bitmap.pixels || width() <= 0 || height() <= 0) {
    delete picture;
    return nullptr;
  }
  if (!picture || isStale_) {
    delete picture;
    picture = window()->createImageNode();
    picture->setOwnsTexture(true);
    picture->setTexture(window()->createTextureFromImage(toQt(image)));
    picture->setFiltering(QSGTexture::Linear);
    isStale_ = false;
  }
  picture->setRect(boundingRect());
  return picture;
}

}  // namespace orrelo::quick
