#pragma once

#include "navigation/page/Page.h"
#include "viewkit/base/ViewController.h"

#include <orrelo/ORLCampaignType.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Takes the user to a page. Main thread.
class PageRouter {
 public:
  virtual ~PageRouter() = default;

  virtual void route(const Page& page, const std::shared_ptr<ViewController>& from) = 0;
};

/// Makes the screens of campaigns.
class CampaignViewControllerFactory {
 public:
  virtual ~CampaignViewControllerFactory() = default;

  virtual std::shared_ptr<ViewController> make(const std::string& id) const = 0;
  virtual std::shared_ptr<ViewController> make(ORLCampaignType type) const = 0;
};

}  // namespace orrelo
