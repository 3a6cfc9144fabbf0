#pragma once

#include "config/FetchConfigUseCase.h"
#include "page/Page.h"
#include "ui/CampaignNavigator.h"
#include "ui/Router.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

class CampaignListViewModel;
class FetchFloatingActionButtonPropertyUseCase;
class RewardViewModel;

/// The services of the initialized kit that features use without knowing who builds it. `initialize` sets the
/// current one.
struct ORRELO_EXPORT RunningKit {
  std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase = nullptr;
  std::shared_ptr<CampaignNavigator> campaignNavigator = nullptr;
  /// Loads the campaigns of home.
  std::shared_ptr<const CampaignListViewModel> campaignListViewModel = nullptr;
  /// Fetches the look of the floating buttons.
  std::shared_ptr<const FetchFloatingActionButtonPropertyUseCase> fetchFloatingActionButtonPropertyUseCase =
      nullptr;
  /// Loads the reward tab of home. Defined in src/rewards.
  std::shared_ptr<RewardViewModel> rewardViewModel = nullptr;
  /// The routers of the features by page. A page without a router cannot be opened.
  std::map<Page::Fixed, std::shared_ptr<Router>> routers = {};

  /// The current kit; null until `makeCurrent`. All functions may be called on any thread.
  static std::shared_ptr<const RunningKit> current();
  /// Sets the current kit; null removes it.
  static void makeCurrent(std::shared_ptr<const RunningKit> kit);

  /// The check of every operation that needs the running kit. Returns false and logs an error if there is
  /// none.
  static bool isInitialized(std::string_view operation);

  /// Checks `isInitialized` and shows the campaign's screen from `with`, on the main thread. Does nothing if
  /// `with` is null.
  static void showCampaign(const std::string& id, const std::shared_ptr<ViewController>& with);
  /// Checks `isInitialized` and opens home for the current user from `with`, see
  /// CampaignNavigator::showHome. Does nothing if `with` is null.
  static void showHome(const std::shared_ptr<ViewController>& with);
};

}  // namespace orrelo
