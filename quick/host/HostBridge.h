#pragma once

#include "quick/bridge/Subscriptions.h"
#include "quick/host/NavigationBridge.h"

#include <QPointer>
#include <QQuickWindow>
#include <memory>

namespace orrelo::quick {

/// What a window's OrreloHost draws: the screens over the host's own, those pushed and above them those
/// presented.
class HostBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
  /// Screens shown from this window are pushed. Once true it stays so.
  Q_PROPERTY(bool pushesScreens READ pushesScreens WRITE setPushesScreens NOTIFY navigationChanged)
  /// Null where nothing is pushed.
  Q_PROPERTY(orrelo::quick::NavigationBridge* navigation READ navigation NOTIFY navigationChanged)
  Q_PROPERTY(orrelo::quick::ScreenLayers* layers READ layers CONSTANT)
  /// What the user has touched last was the keyboard.
  Q_PROPERTY(bool usesKeyboard READ usesKeyboard NOTIFY usesKeyboardChanged)

 public:
  explicit HostBridge(QObject* parent = nullptr);

  QQuickWindow* window() const { return window_; }
  void setWindow(QQuickWindow* window);
  bool pushesScreens() const { return pushesScreens_; }
  void setPushesScreens(bool pushes);
  NavigationBridge* navigation() const { return navigation_; }
  ScreenLayers* layers() const { return layers_; }
  bool usesKeyboard() const { return usesKeyboard_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void windowChanged();
  void navigationChanged();
  void usesKeyboardChanged();

 private:
  /// Starts to show the window's screens.
  void connectToWindow();
  void update(bool animated);
  void setUsesKeyboard(bool uses);

  QPointer<QQuickWindow> window_;
  bool pushesScreens_ = false;
  std::shared_ptr<ViewController> root_;
  NavigationBridge* navigation_ = nullptr;
  ScreenLayers* const layers_;
  bool usesKeyboard_ = false;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
