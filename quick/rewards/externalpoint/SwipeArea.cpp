#include "quick/rewards/externalpoint/SwipeArea.h"

#include "rewards/externalpoint/RightSwipe.h"

#include <QMouseEvent>
#include <QTouchEvent>

namespace orrelo::quick {

SwipeArea::SwipeArea(QQuickItem* parent) : QQuickItem(parent), swipe_(std::make_unique<RightSwipe>()) {
  setFiltersChildMouseEvents(true);
  setAcceptTouchEvents(true);
  setAcceptedMouseButtons(Qt::BackButton);
}

SwipeArea::~SwipeArea() = default;

bool SwipeArea::childMouseEventFilter(QQuickItem*, QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      follow(static_cast<QTouchEvent&>(*event));
      return false;
    case QEvent::MouseButtonPress:
      if (static_cast<QMouseEvent&>(*event).button() != Qt::BackButton) return false;
      Q_EMIT swiped();
      return true;
    default:
      return false;
  }
}

void SwipeArea::touchEvent(QTouchEvent* event) {
  follow(*event);
}

void SwipeArea::mousePressEvent(QMouseEvent*) {
  Q_EMIT swiped();
}

void SwipeArea::follow(const QTouchEvent& event) {
  if (event.type() == QEvent::TouchCancel || event.pointCount() != 1) return swipe_->cancel();
  const auto position = event.points().first().scenePosition();
  const Position place{position.x(), position.y()};
  const std::chrono::milliseconds time(event.timestamp());
  if (event.type() == QEvent::TouchBegin) return swipe_->begin(place, time);
  if (swipe_->move(place, time)) Q_EMIT swiped();
}

}  // namespace orrelo::quick

#include "moc_SwipeArea.cpp"
