#pragma once

#include "campaign/CampaignViewModel.h"
#include "campaign/FetchCampaignsUseCase.h"
#include "campaign/entry/FetchFloatingActionButtonPropertyUseCase.h"
#include "campaign/list/CampaignListViewModel.h"
#include "config/FetchConfigUseCase.h"
#include "network/NetworkConfig.h"
#include "ui/CampaignNavigator.h"
#include "ui/CampaignViewControllerFactory.h"
#include "ui/PageRouter.h"

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

  const FetchCampaignsUseCase fetchCampaignsUseCase;
  const std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory;
  const std::shared_ptr<CampaignNavigator> campaignNavigator;
  const std::shared_ptr<const CampaignListViewModel> campaignListViewModel;
  const std::shared_ptr<const FetchFloatingActionButtonPropertyUseCase>
      fetchFloatingActionButtonPropertyUseCase;

 private:
  CampaignComponent(const CampaignUseCases& useCases, const NetworkConfig& networkConfig,
                    const std::shared_ptr<PageRouter>& pageRouter);
};

}  // namespace orrelo
