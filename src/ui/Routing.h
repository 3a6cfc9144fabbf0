#pragma once

#include "base/Error.h"
#include "page/Page.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>
#include <orrelo/ORLCampaignType.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Takes the user to one feature's screen. Main thread.
class ORRELO_EXPORT Router {
 public:
  virtual ~Router() = default;

  /// Calls exactly one of the two callbacks, on the main thread.
  virtual void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                     std::function<void(const Error&)> onFailure) = 0;
};

/// Takes the user to a page. Main thread.
class ORRELO_EXPORT PageRouter {
 public:
  virtual ~PageRouter() = default;

  /// A page that cannot be opened is only logged.
  virtual void route(const std::shared_ptr<ViewController>& from, const Page& page) = 0;
};

/// Shows `screen` with an animation: pushes it onto the navigation stack that contains `with`, or else
/// presents it from `with`. Does nothing if `with` is null. Main thread.
ORRELO_EXPORT void showScreen(const std::shared_ptr<ViewController>& screen,
                              const std::shared_ptr<ViewController>& with);

/// Creates the screens of campaigns.
class ORRELO_EXPORT CampaignViewControllerFactory {
 public:
  virtual ~CampaignViewControllerFactory() = default;

  virtual std::shared_ptr<ViewController> make(const std::string& id) const = 0;
  virtual std::shared_ptr<ViewController> make(ORLCampaignType type) const = 0;
};

/// Gives other features access to the campaign screens.
class ORRELO_EXPORT CampaignNavigator {
 public:
  virtual ~CampaignNavigator() = default;

  virtual std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const = 0;
};

}  // namespace orrelo
