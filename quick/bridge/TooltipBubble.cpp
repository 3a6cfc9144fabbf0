#include "quick/bridge/TooltipBubble.h"

#include <QPainter>
#include <QPainterPath>

namespace orrelo::quick {

void TooltipBubble::paint(QPainter* painter) {
  if (!tooltip_) return;
  const auto& tooltip = tooltip_->tooltip();
  const auto shape = tooltip.shape({width(), height()});
  QPainterPath bubble;
  bubble.addRoundedRect(QRectF(0.0, shape.top, shape.size.width, shape.size.height),
                        TooltipView::cornerRadius, TooltipView::cornerRadius);
  QPainterPath tail;
  tail.moveTo(shape.tail[0].x, shape.tail[0].y);
  tail.lineTo(shape.tail[1].x, shape.tail[1].y);
  tail.lineTo(shape.tail[2].x, shape.tail[2].y);
  tail.closeSubpath();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(toQt(tooltip.look.tooltipBackgroundColor));
  painter->drawPath(bubble.united(tail));
}

}  // namespace orrelo::quick
