#pragma once

#include "quick/bridge/Subscriptions.h"
#include "quick/host/NavigationBridge.h"

#include <QPointer>
#include <QQuickWindow>
#include <memory>

namespace orrelo::quick {

/// The screens that an OrreloHost draws over the host's content: first the pushed ones, above them the
/// presented ones.
class HostBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
  /// True if screens shown from this window are pushed. It cannot be set back to false.
  Q_PROPERTY(bool pushesScreens READ pushesScreens WRITE setPushesScreens NOTIFY navigationChanged)
  /// The window's stack; null if the window does not push screens.
  Q_PROPERTY(orrelo::quick::NavigationBridge* navigation READ navigation NOTIFY navigationChanged)
  Q_PROPERTY(orrelo::quick::ScreenLayers* layers READ layers CONSTANT)
  /// True if the last input was a key, false if it was a mouse press or a touch.
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
  /// Stops following the former window and starts following the current one.
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
