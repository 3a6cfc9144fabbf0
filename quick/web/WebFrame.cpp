#include "WebFrame.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWheelEvent>

namespace orrelo::quick {

void WebFrame::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemChildAddedChange) watch(data.item);
  QQuickItem::itemChange(change, data);
}

// The engine's own items come and go with its processes.
void WebFrame::watch(QQuickItem* item) {
  item->removeEventFilter(this);
  item->installEventFilter(this);
  connect(item, &QQuickItem::childrenChanged, this, [this, item] {
    for (auto* child : item->childItems()) watch(child);
  });
  for (auto* child : item->childItems()) watch(child);
}

bool WebFrame::eventFilter(QObject*, QEvent* event) {
  if (!passesBy(event)) return false;
  event->ignore();
  return true;
}

bool WebFrame::passesBy(QEvent* event) const {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const auto key = static_cast<QKeyEvent*>(event)->key();
      return key == Qt::Key_Escape || key == Qt::Key_Back;
    }
    case QEvent::Wheel: {
      const int turn = static_cast<QWheelEvent*>(event)->angleDelta().y();
      return (turn > 0 && roomAbove_ < 1.0) || (turn < 0 && roomBelow_ < 1.0);
    }
    default:
      return false;
  }
}

void WebFrame::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  for (auto* above = parentItem(); above != nullptr && !event->isAccepted(); above = above->parentItem()) {
    event->accept();
    QCoreApplication::sendEvent(above, event);
  }
}

}  // namespace orrelo::quick
