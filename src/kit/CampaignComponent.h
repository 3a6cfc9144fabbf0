#pragma once

#include "config/ConfigRepository.h"
#include "network/NetworkConfig.h"
#include "ui/Routing.h"

#include <memory>
#include <string>

namespace orrelo {

/// Builds the campaign feature and its screens.
class CampaignComponent {
 public:
  /// `storeUrl` is the base URL of the store's lookup service.
  CampaignComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                    const NetworkConfig& networkConfig, const std::string& storeUrl,
                    const std::shared_ptr<PageRouter>& pageRouter);

  const std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory;
  const std::shared_ptr<CampaignNavigator> campaignNavigator;
};

}  // namespace orrelo
