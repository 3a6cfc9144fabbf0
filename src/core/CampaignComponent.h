#pragma once

#include "config/ConfigRepository.h"
#include "network/NetworkConfig.h"
#include "viewkit/base/Routing.h"

#include <memory>

namespace orrelo {

/// Wires the campaigns and their screens.
class CampaignComponent {
 public:
  CampaignComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                    const NetworkConfig& networkConfig);

  const std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory;
};

}  // namespace orrelo
