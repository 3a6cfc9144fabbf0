#include "quick/image/PlacementTracker.h"

#include <QEvent>
#include <QQuickRenderControl>
#include <utility>

namespace orrelo::quick {
namespace {

// A window that is drawn into another one is never exposed itself.
bool isExposed(QQuickWindow& window) {
  const auto* const shown = QQuickRenderControl::renderWindowFor(&window);
  return shown != nullptr ? shown->isExposed() : window.isExposed();
}

// By `reach` times its own size, the visible area is larger on each side. Opacity is not considered: items
// fade in and out.
bool isVisibleWithin(const QQuickItem& item, double reach) {
  const auto around = [reach](const QRectF& area) {
    const double x = reach * area.width();
    const double y = reach * area.height();
    return area.adjusted(-x, -y, x, y);
  };
  const auto* const content = item.window()->contentItem();
  auto rect = item.mapRectToScene({0, 0, item.width(), item.height()}) &
              around(content->mapRectToScene({QPointF(), content->size()}));
  for (const auto* outer = item.parentItem(); outer != nullptr && !rect.isEmpty();
       outer = outer->parentItem()) {
    if (outer->clip()) rect &= around(outer->mapRectToScene(outer->clipRect()));
  }
  return !rect.isEmpty();
}

}  // namespace

PlacementTracker::PlacementTracker(QQuickItem& item, std::function<void(const Place&)> report)
    : item_(item), report_(std::move(report)), place_(placeOf(item)) {
  connect(&item, &QQuickItem::windowChanged, this, [this] { followWindow(); });
  connect(&item, &QQuickItem::visibleChanged, this, [this] { update(); });
  followWindow();
  report_(place_);
}

PlacementTracker::Place PlacementTracker::placeOf(const QQuickItem& item) {
  auto* const window = item.window();
  if (window == nullptr) return {.placement = {.hasSuperview = false, .isOnScreen = false}};
  const bool isNear = item.isVisible() && isVisibleWithin(item, 1.0);
  const bool isInSight = isNear && isVisibleWithin(item, 0.0);
  return {.placement = {.hasSuperview = true, .isOnScreen = isInSight && isExposed(*window)},
          .isInSight = isInSight,
          .isNearSight = isNear};
}

void PlacementTracker::followWindow() {
  if (window_) {
    window_->disconnect(this);
    window_->removeEventFilter(this);
  }
  window_ = item_.window();
  if (window_) {
    connect(window_, &QQuickWindow::afterAnimating, this, [this] { update(); });
    window_->installEventFilter(this);
  }
  update();
}

void PlacementTracker::update() {
  const auto place = placeOf(item_);
  if (place == std::exchange(place_, place)) return;
  report_(place);
}

bool PlacementTracker::eventFilter(QObject*, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::Expose || type == QEvent::Show || type == QEvent::Hide) update();
  return false;
}

}  // namespace orrelo::quick
