#include "modular/roulette/LayerPersistentHelper.h"

#include "modular/roulette/RouletteView.h"

#include <utility>

namespace orrelo {
namespace {

bool setPaused(const std::weak_ptr<RouletteView>& weak, bool isPaused) {
  bool was = isPaused;
  if (const auto layer = weak.lock()) {
    layer->state.change([&](RouletteView::State& state) { was = std::exchange(state.isPaused, isPaused); });
  }
  return was;
}

}  // namespace

LayerPersistentHelper::LayerPersistentHelper(const std::weak_ptr<RouletteView>& layer,
                                             Application& application)
    : willResignActive_(
          application.observe(Application::Signal::didEnterBackground,
                              [layer, wasPaused = wasPaused_] { *wasPaused = setPaused(layer, true); })),
      didBecomeActive_(
          application.observe(Application::Signal::willEnterForeground, [layer, wasPaused = wasPaused_] {
            if (!*wasPaused) setPaused(layer, false);
          })) {}

}  // namespace orrelo
