#include "quick/viewkit/TooltipBubble.h"

#include <QPainter>
#include <QPainterPath>

namespace orrelo::quick {
namespace {

constexpr double cornerRadius = 5.0;
/// The background of the whole view, beneath the bubble and its tail.
constexpr Color backing{0.0, 0.0, 0.0, 0.02};
/// The shadow of the bubble and its tail is black and lies below them.
constexpr double shadowOpacity = 0.4;
constexpr double shadowOffset = 4.0;
constexpr double shadowRadius = 3.0;

// Draws outlines of different widths whose opacities add up to a shadow that fades out over its radius.
void paintShadow(QPainter& painter, const QPainterPath& outline) {
  constexpr int steps = 6;
  painter.setBrush(Qt::NoBrush);
  const auto shadow = outline.translated(0.0, shadowOffset);
  for (int step = 0; step < steps; ++step) {
    const double width = 2 * shadowRadius * (steps - step) / steps;
    QPainterPathStroker stroker;
    stroker.setWidth(2 * width);
    stroker.setJoinStyle(Qt::RoundJoin);
    painter.fillPath(shadow.united(stroker.createStroke(shadow)),
                     QColor::fromRgbF(0.0F, 0.0F, 0.0F, float(shadowOpacity / steps)));
  }
}

}  // namespace

double TooltipBubble::margin() {
  return shadowOffset + 2 * shadowRadius;
}

void TooltipBubble::paint(QPainter* painter) {
  if (!tooltip_) return;
  const auto& tooltip = tooltip_->tooltip();
  const QRectF area(0.0, 0.0, width() - 2 * margin(), height() - 2 * margin());
  const auto shape = tooltip.shape({area.width(), area.height()});
  QPainterPath bubble;
  bubble.addRoundedRect(QRectF(0.0, shape.top, shape.size.width, shape.size.height), cornerRadius,
                        cornerRadius);
  // The tail's base lies within the bubble, so that no seam shows between them.
  const double lap = shape.tail[1].y < shape.tail[0].y ? 1.0 : -1.0;
  QPainterPath tail;
  tail.moveTo(shape.tail[0].x, shape.tail[0].y + lap);
  tail.lineTo(shape.tail[1].x, shape.tail[1].y);
  tail.lineTo(shape.tail[2].x, shape.tail[2].y + lap);
  tail.closeSubpath();
  const auto outline = bubble.united(tail);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(margin(), margin());
  painter->fillRect(area, toQt(backing));
  paintShadow(*painter, outline);
  painter->fillPath(outline, toQt(tooltip.look.tooltipBackgroundColor));
}

}  // namespace orrelo::quick

#include "moc_TooltipBubble.cpp"
