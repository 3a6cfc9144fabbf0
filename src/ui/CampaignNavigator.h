#pragma once

#include "ui/CampaignViewControllerFactory.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Opens home and gives other features access to the campaign screens.
class ORRELO_EXPORT CampaignNavigator {
 public:
  virtual ~CampaignNavigator() = default;

  /// Fetches the campaigns of the user and then opens home, or the campaign if there is nothing else to show.
  /// A failure opens an error screen. The screen is pushed onto the navigation stack of `with`, or presented
  /// from it; nothing is opened if `with` is null or gone by then. Main thread.
  virtual void showHome(const std::shared_ptr<ViewController>& with,
                        const std::optional<std::string>& userId) = 0;
  virtual std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const = 0;
};

}  // namespace orrelo
