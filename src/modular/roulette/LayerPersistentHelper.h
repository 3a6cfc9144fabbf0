#pragma once

#include <orrelo/platform/Application.h>

#include <memory>

namespace orrelo {

class RouletteView;

/// Pauses the spin of a wheel while the application is in the background and resumes it in the foreground. A
/// wheel that was paused before stays paused.
class LayerPersistentHelper {
 public:
  LayerPersistentHelper(const std::weak_ptr<RouletteView>& layer, Application& application);

 private:
  /// True if the wheel was paused before the application went to the background. Initially true, so that a
  /// foreground signal alone does not resume it. Shared, since a running callback may outlive the view.
  std::shared_ptr<bool> wasPaused_ = std::make_shared<bool>(true);
  Application::Registration willResignActive_;
  Application::Registration didBecomeActive_;
};

}  // namespace orrelo
