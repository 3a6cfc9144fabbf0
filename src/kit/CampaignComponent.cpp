#include "kit/CampaignComponent.h"

#include "campaign/CampaignLocalDataSource.h"
#include "campaign/CampaignRemoteDataSource.h"
#include "campaign/CampaignRepository.h"
#include "campaign/CampaignViewControllerFactoryImpl.h"
#include "campaign/FetchCampaignStateUseCase.h"
#include "campaign/FetchCampaignUseCase.h"
#include "campaign/SaveCampaignStateUseCase.h"
#include "campaign/entry/CampaignViewPropertyRepository.h"
#include "navigation/CampaignNavigatorImpl.h"
#include "network/HTTPClient.h"

#include <orrelo/Platform.h>

#include <utility>

namespace orrelo {
namespace {

CampaignUseCases makeUseCases(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                              const NetworkConfig& networkConfig, const std::string& storeUrl) {
  const auto httpClient = std::make_shared<HTTPClientImpl>();
  const auto scheduler =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive);
  const auto repository = std::make_shared<CampaignRepositoryImpl>(
      CampaignRemoteDataSource(networkConfig, httpClient, scheduler),
      CampaignLocalDataSource(Platform::current().userDefaults->standard()));
  return {
      .fetchCampaignsUseCase = FetchCampaignsUseCase(repository),
      .fetchCampaignUseCase = FetchCampaignUseCase(repository),
      .fetchConfigUseCase = fetchConfigUseCase,
      .participateCampaignUseCase =
          std::make_shared<ParticipateCampaignUseCaseImpl>(networkConfig, httpClient, scheduler),
      .fetchUpdateUrlUseCase = std::make_shared<FetchUpdateUrlUseCaseImpl>(
          std::make_shared<ItunesAPIServiceImpl>(httpClient, scheduler, storeUrl), fetchConfigUseCase),
      .fetchCampaignStateUseCase = FetchCampaignStateUseCase(repository),
      .saveCampaignStateUseCase = SaveCampaignStateUseCase(repository),
  };
}

std::shared_ptr<CampaignViewPropertyRepository> makePropertyRepository(const NetworkConfig& networkConfig) {
  return CampaignViewPropertyRepositoryImpl::create(
      CampaignViewPropertyLocalDataSource(Platform::current().userDefaults->standard()),
      CampaignViewPropertyRemoteDataSource(
          networkConfig, std::make_shared<HTTPClientImpl>(),
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)));
}

}  // namespace

CampaignComponent::CampaignComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                                     const NetworkConfig& networkConfig, const std::string& storeUrl,
                                     const std::shared_ptr<PageRouter>& pageRouter)
    : CampaignComponent(makeUseCases(fetchConfigUseCase, networkConfig, storeUrl), networkConfig,
                        pageRouter) {}

CampaignComponent::CampaignComponent(const CampaignUseCases& useCases, const NetworkConfig& networkConfig,
                                     const std::shared_ptr<PageRouter>& pageRouter)
    : fetchCampaignsUseCase(useCases.fetchCampaignsUseCase),
      campaignViewControllerFactory(
          std::make_shared<CampaignViewControllerFactoryImpl>(useCases, pageRouter)),
      campaignNavigator(CampaignNavigatorImpl::create(
          useCases.fetchCampaignsUseCase, useCases.fetchConfigUseCase, campaignViewControllerFactory)),
      campaignListViewModel(CampaignListViewModel::create(useCases.fetchCampaignsUseCase)),
      fetchFloatingActionButtonPropertyUseCase(
          std::make_shared<const FetchFloatingActionButtonPropertyUseCase>(
              makePropertyRepository(networkConfig))) {}

}  // namespace orrelo
