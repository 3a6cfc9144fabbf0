#include "quick/host/ScreenLayers.h"

#include "quick/bridge/Kinds.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>

#include <algorithm>

namespace orrelo::quick {

void ScreenLayers::set(const std::vector<std::shared_ptr<ViewController>>& screens, bool wantsAnimation) {
  const bool mayAnimate = !Platform::current().application->prefersReducedMotion();
  const bool animated = wantsAnimation && mayAnimate;
  const auto* const formerTop = top();
  for (std::size_t row = rows().size(); row-- > 0;) {
    auto& state = layer(row).state;
    const auto& screen = layer(row).screen()->screen();
    if (state.isLeaving || std::find(screens.begin(), screens.end(), screen) != screens.end()) continue;
    // A screen with a transition of the window is dismissed without an animation of its own.
    if (animated || (mayAnimate && screen->transition())) {
      state.isLeaving = true;
      state.isAnimated = true;
    } else {
      removeLayer(row);
    }
  }
  for (const auto& wanted : screens) {
    const bool isShown = std::any_of(rows().begin(), rows().end(), [&wanted](const QObject* row) {
      const auto& layer = static_cast<const ScreenLayerBridge&>(*row);
      return !layer.isLeaving() && layer.screen()->screen() == wanted;
    });
    if (!isShown) addLayer(wanted, animated);
  }
  refresh();
  if (top() != formerTop) Q_EMIT topChanged();
}

ScreenBridge* ScreenLayers::top() const {
  for (std::size_t row = rows().size(); row-- > 0;) {
    if (!layer(row).isLeaving()) return layer(row).screen();
  }
  return nullptr;
}

void ScreenLayers::addLayer(const std::shared_ptr<ViewController>& wanted, bool animated) {
  auto* const screen = makeBridge(wanted, nullptr);
  connect(screen, &ScreenBridge::presentationChanged, this, &ScreenLayers::presentationChanged);
  append(new ScreenLayerBridge(screen, animated));
}

void ScreenLayers::removeLayer(std::size_t row) {
  disconnect(layer(row).screen(), nullptr, this, nullptr);
  remove(row);
}

void ScreenLayers::didArrive(ScreenLayerBridge* layer) {
  layer->state.hasArrived = true;
  refresh();
}

void ScreenLayers::didLeave(ScreenLayerBridge* layer) {
  const auto found = std::find(rows().begin(), rows().end(), layer);
  if (found != rows().end() && layer->isLeaving())
    removeLayer(static_cast<std::size_t>(found - rows().begin()));
}

void ScreenLayers::refresh() {
  const auto* const uppermost = top();
  bool isCovered = false;
  for (std::size_t row = rows().size(); row-- > 0;) {
    auto& state = layer(row).state;
    state.isTop = layer(row).screen() == uppermost;
    state.isCovered = isCovered;
    isCovered |= state.hasArrived && !state.isLeaving && !layer(row).screen()->isOver();
  }
  for (auto* const row : rows()) Q_EMIT static_cast<ScreenLayerBridge*>(row)->stateChanged();
}

}  // namespace orrelo::quick

#include "moc_ScreenLayers.cpp"
