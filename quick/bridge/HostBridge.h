#pragma once

#include "quick/bridge/ScreenLayers.h"
#include "quick/bridge/Subscriptions.h"

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
  /// What the user has touched last was the keyboard.
  Q_PROPERTY(bool usesKeyboard READ usesKeyboard NOTIFY usesKeyboardChanged)

 public:
  explicit HostBridge(QObject* parent = nullptr);

  QQuickWindow* window() const { return window_; }
  void setWindow(QQuickWindow* window);
  ScreenLayers* layers() const { return layers_; }
  bool usesKeyboard() const { return usesKeyboard_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void windowChanged();
  void usesKeyboardChanged();

 private:
  void update(bool animated);
  void setUsesKeyboard(bool uses);

  QPointer<QQuickWindow> window_;
  std::shared_ptr<ViewController> screen_;
  ScreenLayers* const layers_;
  bool usesKeyboard_ = false;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
