#include "bridge/HostBridge.h"

#include "bridge/HostWindow.h"

#include <vector>

namespace orrelo::quick {

HostBridge::HostBridge(QObject* parent) : QObject(parent), layers_(new ScreenLayers(this)) {
  connect(layers_, &ScreenLayers::presentationChanged, this, &HostBridge::update);
}

void HostBridge::setWindow(QQuickWindow* window) {
  if (window == window_) return;
  subscriptions_.clear();
  window_ = window;
  screen_ = window ? HostWindow::of(*window).screen() : nullptr;
  if (screen_) {
    subscriptions_.follow(screen_->presentations(), [this](const ViewController::Presented& presented) {
      update(presented.animated);
    });
  } else {
    layers_->set({}, false);
  }
  Q_EMIT windowChanged();
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
