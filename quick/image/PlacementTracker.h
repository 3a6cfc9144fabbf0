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
  struct Place {
    ImageTarget::Placement placement;
    /// True if a part of the item is visible in the window's scene, whether the window is exposed or not: a
    /// window may also be rendered into a picture.
    bool isInSight = false;
    /// True if that holds or would hold after scrolling by at most one screen.
    bool isNearSight = false;

    friend bool operator==(const Place&, const Place&) = default;
  };

  /// Calls `report` at once and after each change.
  PlacementTracker(QQuickItem& item, std::function<void(const Place&)> report);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static Place placeOf(const QQuickItem& item);
  void followWindow();
  void update();

  QQuickItem& item_;
  const std::function<void(const Place&)> report_;
  QPointer<QQuickWindow> window_;
  Place place_;
};

}  // namespace orrelo::quick
