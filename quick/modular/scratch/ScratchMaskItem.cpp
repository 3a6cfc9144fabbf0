#include "quick/modular/scratch/ScratchMaskItem.h"

#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <cstdint>

namespace orrelo::quick {
namespace {

QImage readMaskPicture(QSize size) {
  QImageReader reader(QLatin1Char(':') + assetFile(ScratchMaskView::asset).path());
  reader.setScaledSize(size);
  auto picture = reader.read();
  if (picture.isNull()) {  // Qt's SVG plugin is missing
    picture = QImage(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(0xc9, 0xce, 0xd6));
  }
  return picture.scaled(size).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Shared by all cards of one size, and kept for the page that follows: at most 1 MB on a phone.
const QImage& maskPicture(QSize size) {
  static auto* const picture = new QImage;
  if (picture->size() != size) *picture = readMaskPicture(size);
  return *picture;
}

bool isIntact(const AlphaMask& mask) {
  return std::all_of(mask.pixels().begin(), mask.pixels().end(),
                     [](std::uint8_t alpha) { return alpha == 255; });
}

QRgb faded(QRgb pixel, int alpha) {
  const auto channel = [alpha](int value) { return value * alpha / 255; };
  return qRgba(channel(qRed(pixel)), channel(qGreen(pixel)), channel(qBlue(pixel)), channel(qAlpha(pixel)));
}

}  // namespace

void ScratchMaskItem::setLottery(ScratchLotteryBridge* lottery) {
  if (lottery == lottery_) return;
  if (lottery_) lottery_->disconnect(this);
  lottery_ = lottery;
  if (lottery_) connect(lottery_, &ScratchLotteryBridge::maskTouched, this, &ScratchMaskItem::takeTouched);
  takeTouched();
  Q_EMIT lotteryChanged();
}

void ScratchMaskItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  PaintedItem::geometryChange(newGeometry, oldGeometry);
  takeTouched();
}

void ScratchMaskItem::takeTouched() {
  if (!lottery_ || width() <= 0 || height() <= 0) return;
  lottery_->mask().setSize({width(), height()});
  const auto* const mask = lottery_->mask().mask();
  if (mask == nullptr || !isDrawn()) return;
  const QSize size(mask->width(), mask->height());
  auto touched = lottery_->mask().takeTouched();
  if (picture_.size() != size) {
    picture_ = maskPicture(size);
    masked_ = picture_;
    touched = isIntact(*mask) ? PixelRect() : mask->bounds();
    update();
  }
  if (touched.isEmpty()) return;
  for (int y = touched.y; y < touched.y + touched.height; ++y) {
    const auto* const alpha = mask->pixels().data() + std::ptrdiff_t(y) * mask->width();
    const auto* const from = reinterpret_cast<const QRgb*>(picture_.constScanLine(y));
    auto* const to = reinterpret_cast<QRgb*>(masked_.scanLine(y));
    for (int x = touched.x; x < touched.x + touched.width; ++x) to[x] = faded(from[x], alpha[x]);
  }
  const double scale = size.width() / width();
  update(QRectF(touched.x / scale, touched.y / scale, touched.width / scale, touched.height / scale)
             .toAlignedRect()
             .adjusted(-1, -1, 1, 1));
}

void ScratchMaskItem::paint(QPainter* painter) {
  if (masked_.isNull()) return;
  painter->setRenderHint(QPainter::SmoothPixmapTransform);
  painter->drawImage(QRectF(0, 0, width(), height()), masked_);
}

}  // namespace orrelo::quick

#include "moc_ScratchMaskItem.cpp"
