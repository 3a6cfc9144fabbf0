#include "kit/PointComponent.h"

#include "network/HTTPClient.h"
#include "rewards/point/PointRouter.h"

namespace orrelo {
namespace {

std::shared_ptr<PointRepository> makeRepository(const NetworkConfig& networkConfig) {
  return PointRepositoryImpl::create(PointRemoteDataSource(
      {networkConfig.baseUrl + "/pointsystem", networkConfig.headers}, std::make_shared<HTTPClientImpl>(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)));
}

}  // namespace

PointComponent::PointComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                               const NetworkConfig& networkConfig)
    : PointComponent(fetchConfigUseCase, makeRepository(networkConfig)) {}

PointComponent::PointComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                               const std::shared_ptr<PointRepository>& repository)
    : fetchPointUseCase(std::make_shared<FetchPointUseCaseImpl>(fetchConfigUseCase, repository)),
      fetchPointUnitUseCase(std::make_shared<FetchPointUnitUseCaseImpl>(fetchConfigUseCase, repository)),
      router(std::make_shared<PointRouter>(std::make_shared<PointRedemptionHistoryViewControllerFactoryImpl>(
          FetchPointRedemptionHistoriesUseCase(repository), fetchPointUseCase))) {}

}  // namespace orrelo
