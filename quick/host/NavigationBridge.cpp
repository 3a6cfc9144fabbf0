#include "quick/host/NavigationBridge.h"

namespace orrelo::quick {

NavigationBridge::NavigationBridge(const std::shared_ptr<NavigationController>& screen, QObject* parent)
    : ScreenBridge(screen, parent), navigation_(*screen), layers_(new ScreenLayers(this)) {
  connect(this, &ScreenBridge::stateChanged, this, [this] {
    auto state = navigation_.state();
    std::erase_if(state.viewControllers, [](const auto& pushed) {
      return std::dynamic_pointer_cast<HostViewController>(pushed) != nullptr;
    });
    layers_->set(state.viewControllers, state.animated);
  });
  follow(navigation_.stateChanges());
}

QColor NavigationBridge::titleColor() const {
  const auto attributes = navigation_.state().titleTextAttributes;
  return attributes ? toQt(attributes->foregroundColor) : QColor(Qt::black);
}

void NavigationBridge::close() {
  if (auto* top = layers_->top()) top->close();
}

}  // namespace orrelo::quick

#include "moc_NavigationBridge.cpp"
