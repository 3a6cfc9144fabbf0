#pragma once

#include "quick/bridge/ListBridge.h"
#include "quick/host/ScreenLayerBridge.h"

#include <memory>
#include <vector>

namespace orrelo::quick {

/// Screens that lie over each other, one per row, the lowest first. A removed screen keeps its row until its
/// animation has ended.
class ScreenLayers final : public orrelo::quick::ListBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The uppermost screen that is not leaving; null if there is none.
  Q_PROPERTY(orrelo::quick::ScreenBridge* top READ top NOTIFY topChanged)

 public:
  explicit ScreenLayers(QObject* parent) : ListBridge(parent) {}

  /// Adds and removes rows to match `screens`, which are compared by identity. Nothing is animated if the
  /// user prefers reduced motion.
  void set(const std::vector<std::shared_ptr<ViewController>>& screens, bool animated);
  ScreenBridge* top() const;

  /// Called when the animation of the arrival, or of the departure, has ended.
  Q_INVOKABLE void didArrive(orrelo::quick::ScreenLayerBridge* layer);
  Q_INVOKABLE void didLeave(orrelo::quick::ScreenLayerBridge* layer);

 Q_SIGNALS:
  void topChanged();
  /// One of the screens now presents another screen, or no longer presents one.
  void presentationChanged(bool animated);

 private:
  ScreenLayerBridge& layer(std::size_t row) const { return static_cast<ScreenLayerBridge&>(*rows()[row]); }
  void addLayer(const std::shared_ptr<ViewController>& screen, bool animated);
  void removeLayer(std::size_t row);
  /// Updates `isTop` and `isCovered` of all layers.
  void refresh();
};

}  // namespace orrelo::quick
