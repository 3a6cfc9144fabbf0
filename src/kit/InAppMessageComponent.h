#pragma once

#include "config/FetchConfigUseCase.h"
#include "inappmessage/InAppMessageNavigator.h"
#include "network/NetworkConfig.h"
#include "ui/CampaignNavigator.h"

#include <memory>

namespace orrelo {

/// Builds the in-app messages and their screen.
class InAppMessageComponent {
 public:
  InAppMessageComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                        const NetworkConfig& networkConfig,
                        const std::shared_ptr<CampaignNavigator>& campaignNavigator);

  const std::shared_ptr<InAppMessageNavigator> navigator;
};

}  // namespace orrelo
