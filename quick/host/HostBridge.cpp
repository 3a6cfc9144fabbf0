#include "quick/host/HostBridge.h"

#include "quick/host/HostWindow.h"
#include "quick/host/WarmUp.h"

#include <QEvent>
#include <QQmlEngine>
#include <utility>
#include <vector>

namespace orrelo::quick {

HostBridge::HostBridge(QObject* parent) : QObject(parent), layers_(new ScreenLayers(this)) {
  connect(layers_, &ScreenLayers::presentationChanged, this, &HostBridge::update);
}

void HostBridge::setWindow(QQuickWindow* window) {
  if (window == window_) return;
  if (window_) window_->removeEventFilter(this);
  window_ = window;
  if (window_) window_->installEventFilter(this);
  connectToWindow();
  if (auto* const engine = qmlEngine(this); engine != nullptr && window_) WarmUp::begin(*engine, *window_);
  Q_EMIT windowChanged();
}

void HostBridge::setPushesScreens(bool pushes) {
  if (pushesScreens_ || !pushes) return;
  pushesScreens_ = true;
  connectToWindow();
}

void HostBridge::connectToWindow() {
  subscriptions_.clear();
  if (auto* const former = std::exchange(navigation_, nullptr)) former->deleteLater();
  root_.reset();
  layers_->set({}, false);
  if (window_) {
    auto& host = HostWindow::of(*window_);
    host.didGetHost();
    if (pushesScreens_) host.makeNavigation();
    if (host.navigation()) navigation_ = new NavigationBridge(host.navigation(), this);
    root_ = host.root();
    subscriptions_.follow(root_->presentedChanges(), [this] { update(root_->presented().animated); });
  }
  Q_EMIT navigationChanged();
}

bool HostBridge::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress) setUsesKeyboard(true);
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin)
    setUsesKeyboard(false);
  return false;
}

void HostBridge::setUsesKeyboard(bool uses) {
  if (uses == usesKeyboard_) return;
  usesKeyboard_ = uses;
  Q_EMIT usesKeyboardChanged();
}

void HostBridge::update(bool animated) {
  if (!root_) return;
  std::vector<std::shared_ptr<ViewController>> screens;
  for (auto above = root_->presentedViewController(); above; above = above->presentedViewController()) {
    screens.push_back(above);
  }
  layers_->set(screens, animated);
}

}  // namespace orrelo::quick

#include "moc_HostBridge.cpp"
