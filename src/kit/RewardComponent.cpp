#include "kit/RewardComponent.h"

#include "network/HTTPClient.h"
#include "rewards/RewardRepository.h"

namespace orrelo {

RewardComponent::RewardComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                                 const std::shared_ptr<FetchPointUseCase>& fetchPointUseCase,
                                 const NetworkConfig& networkConfig)
    : fetchRewardsUseCase(std::make_shared<FetchRewardUseCaseImpl>(std::make_shared<RewardRepositoryImpl>(
          networkConfig, std::make_shared<HTTPClientImpl>(), fetchConfigUseCase, fetchPointUseCase,
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)))),
      viewModel(RewardViewModel::create(fetchRewardsUseCase, fetchConfigUseCase)) {}

}  // namespace orrelo
