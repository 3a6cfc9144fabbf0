#include "quick/web/WebFrame.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <cmath>

namespace orrelo::quick {
namespace {

// The distance after which a finger's direction is decided, in points; shorter than the screen's drag
// threshold.
constexpr double decisionDistance = 3.0;
// The time within which a page must scroll before the wheel goes to the screen, in milliseconds.
constexpr quint64 scrollTimeout = 100;

void collect(const QQuickItem& item, QSet<QQuickItem*>& found) {
  for (auto* child : item.childItems()) {
    found.insert(child);
    collect(*child, found);
  }
}

bool screenScrolls(const QQuickItem& item) {
  const auto* above = item.parentItem();
  while (above != nullptr && !above->inherits("QQuickFlickable")) above = above->parentItem();
  return above != nullptr && above->property("contentHeight").toDouble() > above->height();
}

}  // namespace

WebFrame::WebFrame(QQuickItem* parent) : QQuickItem(parent) {
  setFiltersChildMouseEvents(true);
  connect(this, &WebFrame::roomChanged, this, [this] { unusedTurn_.reset(); });
}

void WebFrame::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemChildAddedChange || change == ItemChildRemovedChange) watchAll();
  QQuickItem::itemChange(change, data);
}

void WebFrame::watchAll() {
  QSet<QQuickItem*> present;
  collect(*this, present);
  for (auto* item : watched_ - present) {
    item->removeEventFilter(this);
    item->disconnect(this);
  }
  for (auto* item : present - watched_) {
    item->installEventFilter(this);
    connect(item, &QQuickItem::childrenChanged, this, &WebFrame::watchAll);
  }
  watched_ = present;
}

bool WebFrame::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress && takesKey(*static_cast<QKeyEvent*>(event))) return true;
  if (!bypassesPage(event)) return false;
  event->ignore();
  return true;
}

bool WebFrame::bypassesPage(QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const auto key = static_cast<QKeyEvent*>(event)->key();
      return key == Qt::Key_Escape || key == Qt::Key_Back;
    }
    case QEvent::Wheel:
      return bypassesPage(*static_cast<QWheelEvent*>(event));
    default:
      return false;
  }
}

bool WebFrame::takesKey(const QKeyEvent& key) {
  const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
  if (!isTab && key.key() != Qt::Key_F6) return false;
  const bool isForward = key.key() != Qt::Key_Backtab && !(key.modifiers() & Qt::ShiftModifier);
  if (!isTab || awaitsAnswer_) {
    moveFocusOut(isForward);
    return true;
  }
  awaitsAnswer_ = true;
  Q_EMIT asked();
  return false;
}

// Skips the engine's view and the items in it, which are also part of the focus chain.
void WebFrame::moveFocusOut(bool isForward) {
  awaitsAnswer_ = false;
  auto* const first = nextItemInFocusChain(isForward);
  auto* next = first;
  while (isAncestorOf(next)) {
    next = next->nextItemInFocusChain(isForward);
    if (next == first) return;
  }
  next->forceActiveFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

bool WebFrame::bypassesPage(const QWheelEvent& wheel) {
  const int turn = wheel.angleDelta().y();
  // An event without a delta marks the beginning or the end of a scroll.
  if (wheel.angleDelta().isNull()) return hasPassedWheel_;
  if (turn == 0) return false;
  if (!unusedTurn_ || unusedTurn_->isUp != (turn > 0)) unusedTurn_ = Turn{turn > 0, wheel.timestamp()};
  hasPassedWheel_ = !canScroll(turn) || wheel.timestamp() - unusedTurn_->time >= scrollTimeout;
  return hasPassedWheel_;
}

bool WebFrame::childMouseEventFilter(QQuickItem* item, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      // A mouse event that is synthesized from a touch does not keep the grab.
      item->setKeepMouseGrab(static_cast<QMouseEvent*>(event)->deviceType() !=
                             QInputDevice::DeviceType::TouchScreen);
      break;
    case QEvent::TouchBegin:
      item->setKeepMouseGrab(false);
      item->setKeepTouchGrab(false);
      decidesDrag_ = true;
      break;
    case QEvent::TouchUpdate: {
      const auto& point = static_cast<QTouchEvent*>(event)->point(0);
      const double move = point.scenePosition().y() - point.scenePressPosition().y();
      if (!decidesDrag_ || std::abs(move) < decisionDistance) break;
      decidesDrag_ = false;
      // A screen that fits its window would use the drag only for its overshoot.
      item->setKeepTouchGrab(canScroll(move) || !screenScrolls(*this));
      break;
    }
    default:
      break;
  }
  return QQuickItem::childMouseEventFilter(item, event);
}

void WebFrame::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  for (auto* above = parentItem(); above != nullptr && !event->isAccepted(); above = above->parentItem()) {
    event->accept();
    QCoreApplication::sendEvent(above, event);
  }
}

}  // namespace orrelo::quick
