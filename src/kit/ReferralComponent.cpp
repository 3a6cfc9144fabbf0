#include "kit/ReferralComponent.h"

#include "network/HTTPClient.h"
#include "referral/ReferralRouter.h"

namespace orrelo {
namespace {

std::shared_ptr<ReferralService> makeService(const FetchCampaignsUseCase& fetchCampaignsUseCase,
                                             const NetworkConfig& networkConfig) {
  return std::make_shared<ReferralServiceImpl>(
      networkConfig, std::make_shared<FetchReferralUseCaseImpl>(fetchCampaignsUseCase),
      std::make_shared<HTTPClientImpl>(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive));
}

}  // namespace

ReferralComponent::ReferralComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                                     const FetchCampaignsUseCase& fetchCampaignsUseCase,
                                     const NetworkConfig& networkConfig)
    : router(std::make_shared<ReferralRouter>(std::make_shared<ReferralViewControllerFactoryImpl>(
                                                  makeService(fetchCampaignsUseCase, networkConfig)),
                                              fetchConfigUseCase)) {}

}  // namespace orrelo
