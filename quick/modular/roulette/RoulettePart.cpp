#include "quick/modular/roulette/RoulettePart.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <array>
#include <utility>

namespace orrelo::quick {
namespace {

QPointF toQt(const Position& point) {
  return {point.x, point.y};
}

void paint(QPainter& painter, const RouletteDrawing::Disc& disc) {
  painter.setBrush(quick::toQt(disc.color));
  painter.drawEllipse(squareAround(disc.center, disc.radius));
}

// Qt measures angles anticlockwise.
void paint(QPainter& painter, const RouletteDrawing::Sector& sector) {
  QPainterPath path(toQt(sector.center));
  path.arcTo(squareAround(sector.center, sector.radius), -sector.startAngle,
             sector.startAngle - sector.endAngle);
  path.closeSubpath();
  painter.fillPath(path, quick::toQt(sector.color));
}

QFont fontOf(const TextStyle& style, const QString& family) {
  QFont font(family);
  font.setPixelSize(qMax(1, qRound(style.size)));
  constexpr std::array weights{QFont::Normal, QFont::DemiBold, QFont::Bold, QFont::ExtraBold};
  font.setWeight(weights.at(static_cast<std::size_t>(style.weight)));
  return font;
}

void paint(QPainter& painter, const RouletteDrawing::Text& text, const QString& fontFamily) {
  const QRectF frame(text.frame.x, text.frame.y, text.frame.width, text.frame.height);
  painter.save();
  painter.translate(frame.center());
  painter.rotate(text.rotation);
  painter.translate(-frame.center());
  // Text is clipped only at the sides, since the lines of some fonts are higher than the frames.
  painter.setClipRect(frame.adjusted(0, -frame.height(), 0, frame.height()));
  painter.setFont(fontOf(text.style, fontFamily));
  painter.setPen(quick::toQt(text.style.color));
  painter.drawText(frame, Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine, quick::toQt(text.text));
  painter.restore();
}

void paint(QPainter& painter, const RouletteDrawing::Pin& pin) {
  QPainterPath path;
  for (const auto& corner : pin.corners) {
    const auto square = squareAround(corner.center, corner.radius);
    if (path.elementCount() == 0) path.arcMoveTo(square, -corner.startAngle);
    path.arcTo(square, -corner.startAngle, -corner.sweep);
  }
  path.closeSubpath();
  painter.fillPath(path, quick::toQt(pin.color));
}

}  // namespace

RoulettePart::RoulettePart(QQuickItem* parent) : PaintedItem(parent) {
  setAntialiasing(true);
  for (const auto changed :
       {&RoulettePart::rouletteChanged, &RoulettePart::partChanged, &RoulettePart::fontFamilyChanged}) {
    connect(this, changed, this, [this] { update(); });
  }
}

QSGNode* RoulettePart::updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) {
  // The signals are queued to the main thread, since the scene may be rendered on another thread.
  if (!std::exchange(hasAppeared_, true)) {
    QMetaObject::invokeMethod(this, &RoulettePart::appeared, Qt::QueuedConnection);
  }
  return PaintedItem::updatePaintNode(node, data);
}

void RoulettePart::paint(QPainter* painter) {
  if (!roulette_) return;
  const auto& drawing = roulette_->drawing;
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->translate(-position());
  if (part_ == Wheel) {
    for (const auto& disc : drawing.rim) quick::paint(*painter, disc);
    for (const auto& sector : drawing.wheel.sectors) quick::paint(*painter, sector);
    for (const auto& text : drawing.wheel.texts) quick::paint(*painter, text, fontFamily_);
  } else {
    quick::paint(*painter, drawing.centerDot);
    if (drawing.veil) {
      quick::paint(*painter, drawing.veil->disc);
      quick::paint(*painter, drawing.veil->text, fontFamily_);
    }
    quick::paint(*painter, drawing.pin);
  }
  QMetaObject::invokeMethod(this, &RoulettePart::painted, Qt::QueuedConnection);
}

}  // namespace orrelo::quick

#include "moc_RoulettePart.cpp"
