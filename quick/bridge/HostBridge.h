#pragma once

#include "bridge/ScreenLayers.h"
#include "bridge/Subscriptions.h"

#include <QPointer>
#include <QQuickWindow>

#include <memory>

namespace orrelo::quick {

/// What a window's OrreloHost draws: the screens over the host's own.
class HostBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
  Q_PROPERTY(orrelo::quick::ScreenLayers* layers READ layers CONSTANT)

 public:
  explicit HostBridge(QObject* parent = nullptr);

  QQuickWindow* window() const { return window_; }
  void setWindow(QQuickWindow* window);
  ScreenLayers* layers() const { return layers_; }

 Q_SIGNALS:
  void windowChanged();

 private:
  void update(bool animated);

  QPointer<QQuickWindow> window_;
  std::shared_ptr<ViewController> screen_;
  ScreenLayers* const layers_;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
