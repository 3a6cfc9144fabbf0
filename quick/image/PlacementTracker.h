#pragma once

#include "image/ImageTarget.h"

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <functional>

namespace orrelo::quick {

/// Follows where an item is: whether it is part of a window and whether a part of it is visible there. While
/// it lives it looks once before each frame of the window, because an item moves only with a frame, and
/// whenever the window or the item appears or disappears.
class PlacementTracker final : public QObject {
 public:
  using Placement = ImageTarget::Placement;

  /// Calls `report` at once and after each change.
  PlacementTracker(QQuickItem& item, std::function<void(Placement)> report);

  static Placement placementOf(const QQuickItem& item);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void followWindow();
  void update();

  QQuickItem& item_;
  const std::function<void(Placement)> report_;
  QPointer<QQuickWindow> window_;
  Placement placement_;
};

}  // namespace orrelo::quick
