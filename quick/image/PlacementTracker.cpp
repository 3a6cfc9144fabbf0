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

// Opacity is not considered: items fade in and out.
bool isInSight(const QQuickItem& item) {
  auto rect = item.mapRectToScene({0, 0, item.width(), item.height()}) &
              QRectF(QPointF(), item.window()->contentItem()->size());
  for (const auto* around = item.parentItem(); around != nullptr && !rect.isEmpty();
       around = around->parentItem()) {
    if (around->clip()) rect &= around->mapRectToScene(around->clipRect());
  }
  return !rect.isEmpty();
}

}  // namespace

PlacementTracker::PlacementTracker(QQuickItem& item, std::function<void(Placement)> report)
    : item_(item), report_(std::move(report)), placement_(placementOf(item)) {
  connect(&item, &QQuickItem::windowChanged, this, [this] { followWindow(); });
  connect(&item, &QQuickItem::visibleChanged, this, [this] { update(); });
  followWindow();
  report_(placement_);
}

PlacementTracker::Placement PlacementTracker::placementOf(const QQuickItem& item) {
  auto* const window = item.window();
  if (window == nullptr) return {.hasSuperview = false, .isOnScreen = false};
  return {.hasSuperview = true, .isOnScreen = isExposed(*window) && item.isVisible() && isInSight(item)};
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
  const auto placement = placementOf(item_);
  if (placement == std::exchange(placement_, placement)) return;
  report_(placement);
}

bool PlacementTracker::eventFilter(QObject*, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::Expose || type == QEvent::Show || type == QEvent::Hide) update();
  return false;
}

}  // namespace orrelo::quick
