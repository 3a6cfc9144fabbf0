#pragma once

#include "navigation/page/Page.h"
#include "viewkit/base/ViewController.h"

#include <orrelo/Export.h>
#include <orrelo/ORLCampaignType.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Takes the user to a page. Main thread.
class ORRELO_EXPORT PageRouter {
 public:
  virtual ~PageRouter() = default;

  virtual void route(const Page& page, const std::shared_ptr<ViewController>& from) = 0;
};

/// Makes the screens of campaigns.
class ORRELO_EXPORT CampaignViewControllerFactory {
 public:
  virtual ~CampaignViewControllerFactory() = default;

  virtual std::shared_ptr<ViewController> make(const std::string& id) const = 0;
  virtual std::shared_ptr<ViewController> make(ORLCampaignType type) const = 0;
};

}  // namespace orrelo
