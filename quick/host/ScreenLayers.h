#pragma once

#include "quick/bridge/ListBridge.h"
#include "quick/host/ScreenLayerBridge.h"

#include <memory>
#include <vector>

namespace orrelo::quick {

/// Screens that lie over each other, the lowest first, each in a row of its own. One that was taken away
/// stays until it has left the screen before the user's eyes.
class ScreenLayers final : public ListBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The uppermost that is to stay; null where there is none.
  Q_PROPERTY(orrelo::quick::ScreenBridge* top READ top NOTIFY topChanged)

 public:
  explicit ScreenLayers(QObject* parent) : ListBridge(parent) {}

  /// Becomes these. Screens are known by their identity.
  void set(const std::vector<std::shared_ptr<ViewController>>& screens, bool animated);
  ScreenBridge* top() const;

  /// The front reports: the screen has come to rest, or has left.
  Q_INVOKABLE void arrived(orrelo::quick::ScreenLayerBridge* layer);
  Q_INVOKABLE void gone(orrelo::quick::ScreenLayerBridge* layer);

 Q_SIGNALS:
  void topChanged();
  /// One of the screens presents something else than before.
  void presentationChanged(bool animated);

 private:
  ScreenLayerBridge& layer(std::size_t row) const { return static_cast<ScreenLayerBridge&>(*rows()[row]); }
  void take(const std::shared_ptr<ViewController>& screen, bool animated);
  void drop(std::size_t row);
  /// Tells each layer how it lies now.
  void refresh();
};

}  // namespace orrelo::quick
