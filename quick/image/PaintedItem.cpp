#include "quick/image/PaintedItem.h"

#include <utility>

namespace orrelo::quick {

PaintedItem::PaintedItem(QQuickItem* parent)
    : QQuickPaintedItem(parent), tracker_(*this, [this](PlacementTracker::Placement placement) {
        if (placement.isOnScreen == std::exchange(isInSight_, placement.isOnScreen)) return;
        if (isInSight_) comeIntoSight();
        QQuickItem::update();
      }) {}

QSGNode* PaintedItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) {
  if (isInSight_) return QQuickPaintedItem::updatePaintNode(node, data);
  delete node;
  return nullptr;
}

}  // namespace orrelo::quick

#include "moc_PaintedItem.cpp"
