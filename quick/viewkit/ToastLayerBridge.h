#pragma once

#include "quick/bridge/ListBridge.h"
#include "quick/viewkit/ToastBridge.h"
#include "viewkit/ToastLayer.h"

namespace orrelo::quick {

/// The toasts of a screen. A toast that stays keeps its row and therefore its running fade animation.
class ToastLayerBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ListBridge* toasts MEMBER toasts CONSTANT)

 public:
  ToastLayerBridge(const std::shared_ptr<ToastLayer>& view, QObject* parent);

  ListBridge* const toasts;

  /// Announces the toast's message to assistive technology.
  Q_INVOKABLE void announce(QObject* item) const;
  /// Called when the fade animation has ended.
  Q_INVOKABLE void fadeDidFinish(orrelo::quick::ToastBridge* toast) { layer_.fadeDidFinish(toast->toast); }

 private:
  ToastLayer& layer_;
};

}  // namespace orrelo::quick
