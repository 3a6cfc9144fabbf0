#include "quick/viewkit/ToastLayerBridge.h"

#include <QAccessible>

namespace orrelo::quick {

ToastLayerBridge::ToastLayerBridge(const std::shared_ptr<ToastLayer>& view, QObject* parent)
    : ViewBridge(view, parent), toasts(new ListBridge(this)), layer_(*view) {
  connect(this, &ViewBridge::stateChanged, this, [this] {
    const auto shown = layer_.toasts.value();  // a copy, since each new row makes a delegate
    toasts->assign<ToastBridge>(
        shown, [](const ToastBridge& row, const auto& toast) { return row.view() == toast; },
        [this](const auto& toast) { return new ToastBridge(toast, toasts); });
  });
  follow(layer_.toasts);
}

void ToastLayerBridge::announce(QObject* item) const {
  QAccessibleEvent event(item, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

}  // namespace orrelo::quick

#include "moc_ToastLayerBridge.cpp"
