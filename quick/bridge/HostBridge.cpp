#include "quick/bridge/HostBridge.h"

#include "quick/bridge/HostWindow.h"

#include <QEvent>
#include <vector>

namespace orrelo::quick {

HostBridge::HostBridge(QObject* parent) : QObject(parent), layers_(new ScreenLayers(this)) {
  connect(layers_, &ScreenLayers::presentationChanged, this, &HostBridge::update);
}

void HostBridge::setWindow(QQuickWindow* window) {
  if (window == window_) return;
  subscriptions_.clear();
  if (window_) window_->removeEventFilter(this);
  window_ = window;
  if (window_) window_->installEventFilter(this);
  screen_ = window ? HostWindow::of(*window).screen() : nullptr;
  if (screen_) {
    subscriptions_.follow(screen_->presentations(),
                          [this](const ViewController::Presented& presented) { update(presented.animated); });
  } else {
    layers_->set({}, false);
  }
  Q_EMIT windowChanged();
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
  if (!screen_) return;
  std::vector<std::shared_ptr<ViewController>> screens;
  for (auto above = screen_->presentedViewController(); above; above = above->presentedViewController()) {
    screens.push_back(above);
  }
  layers_->set(screens, animated);
}

}  // namespace orrelo::quick
