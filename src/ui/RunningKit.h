#pragma once

#include "ui/Routing.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

/// What features ask of the kit that runs, without knowing who builds it. `initialize` fills it.
struct RunningKit {
  std::shared_ptr<CampaignNavigator> campaignNavigator;
  /// The feature's router for a page; null where this kit has none.
  std::function<std::shared_ptr<Router>(Page::Fixed page)> router;

  /// Null until `makeCurrent`. Any thread, as are all of these.
  static std::shared_ptr<const RunningKit> current();
  /// Null leaves nothing running.
  static void makeCurrent(std::shared_ptr<const RunningKit> kit);

  /// The guard of every operation that needs the running kit: false, with a log line, where there is none.
  static bool isInitialized(std::string_view operation);

  /// Guarded. Shows the campaign's screen from `with`, on the main thread; nothing without `with`.
  static void showCampaign(const std::string& id, const std::shared_ptr<ViewController>& with);
  /// Guarded. There is no home screen yet.
  static void showHome(const std::shared_ptr<ViewController>& with);
};

}  // namespace orrelo
