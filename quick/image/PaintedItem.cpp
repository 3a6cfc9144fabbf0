#include "quick/image/PaintedItem.h"

#include <utility>

namespace orrelo::quick {

PaintedItem::PaintedItem(QQuickItem* parent)
    : QQuickPaintedItem(parent), tracker_(*this, [this](const PlacementTracker::Place& place) {
        const bool isDrawn = place.isInSight || (isDrawn_ && place.isNearSight);
        if (isDrawn == std::exchange(isDrawn_, isDrawn)) return;
        if (isDrawn) comeIntoSight();
        update();  // the whole item, also if a part of it was to be painted
      }) {}

QSGNode* PaintedItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) {
  if (isDrawn_) return QQuickPaintedItem::updatePaintNode(node, data);
  delete node;
  return nullptr;
}

}  // namespace orrelo::quick

#include "moc_PaintedItem.cpp"
