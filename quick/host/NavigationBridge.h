#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/host/ScreenLayers.h"
#include "ui/NavigationController.h"

#include <QColor>

namespace orrelo::quick {

class NavigationBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// All screens of the stack except the host's own, which the host draws itself.
  Q_PROPERTY(orrelo::quick::ScreenLayers* layers READ layers CONSTANT)
  Q_PROPERTY(bool isBarHidden READ isBarHidden NOTIFY stateChanged)
  Q_PROPERTY(QColor titleColor READ titleColor NOTIFY stateChanged)

 public:
  NavigationBridge(const std::shared_ptr<NavigationController>& screen, QObject* parent);

  ScreenLayers* layers() const { return layers_; }
  bool isBarHidden() const { return navigation_.state().isNavigationBarHidden; }
  QColor titleColor() const;
  /// Closes the topmost screen.
  void close() override;

 private:
  const NavigationController& navigation_;
  ScreenLayers* const layers_;
};

}  // namespace orrelo::quick
