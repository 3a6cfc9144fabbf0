#pragma once

#include "platform/Application.h"

#include <memory>

namespace orrelo {

class RouletteView;

/// Keeps a wheel's spin across the application's time in the background: it stands still meanwhile, and goes
/// on from there. One that stood still before keeps standing.
class LayerPersistentHelper {
 public:
  LayerPersistentHelper(const std::weak_ptr<RouletteView>& layer, Application& application);

 private:
  /// Before the background came; true until then, so that a foreground alone starts nothing. Shared: a
  /// callback that is running may outlive the view.
  std::shared_ptr<bool> wasPaused_ = std::make_shared<bool>(true);
  Application::Registration willResignActive_;
  Application::Registration didBecomeActive_;
};

}  // namespace orrelo
