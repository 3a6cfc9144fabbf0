#pragma once

#include "campaign/FetchCampaignsUseCase.h"
#include "config/FetchConfigUseCase.h"
#include "network/NetworkConfig.h"
#include "ui/Router.h"

#include <memory>

namespace orrelo {

/// Builds the screen for a friend's code.
class ReferralComponent {
 public:
  ReferralComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                    const FetchCampaignsUseCase& fetchCampaignsUseCase, const NetworkConfig& networkConfig);

  const std::shared_ptr<Router> router;
};

}  // namespace orrelo
