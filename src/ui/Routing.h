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

  /// Calls exactly one of the two, on the main thread.
  virtual void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                     std::function<void(const Error&)> onFailure) = 0;
};

/// Takes the user to a page. Main thread.
class ORRELO_EXPORT PageRouter {
 public:
  virtual ~PageRouter() = default;

  /// What cannot be opened says so in the log alone.
  virtual void route(const std::shared_ptr<ViewController>& from, const Page& page) = 0;
};

/// Shows `screen` from `with`, animated: on the stack that `with` lies on, else presented by it. Nothing
/// without `with`. Main thread.
ORRELO_EXPORT void showScreen(const std::shared_ptr<ViewController>& screen,
                              const std::shared_ptr<ViewController>& with);

/// Makes the screens of campaigns.
class ORRELO_EXPORT CampaignViewControllerFactory {
 public:
  virtual ~CampaignViewControllerFactory() = default;

  virtual std::shared_ptr<ViewController> make(const std::string& id) const = 0;
  virtual std::shared_ptr<ViewController> make(ORLCampaignType type) const = 0;
};

/// Leads to the screens of campaigns.
class ORRELO_EXPORT CampaignNavigator {
 public:
  virtual ~CampaignNavigator() = default;

  virtual std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const = 0;
};

}  // namespace orrelo
