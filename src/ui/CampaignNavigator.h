#pragma once

#include "ui/CampaignViewControllerFactory.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// Gives other features access to the campaign screens.
class ORRELO_EXPORT CampaignNavigator {
 public:
  virtual ~CampaignNavigator() = default;

  virtual std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const = 0;
};

}  // namespace orrelo
