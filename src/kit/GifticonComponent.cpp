#include "kit/GifticonComponent.h"

#include "network/HTTPClient.h"
#include "rewards/gifticon/GifticonRouter.h"

namespace orrelo {
namespace {

GifticonUseCases makeUseCases(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                              const NetworkConfig& networkConfig) {
  const auto service = std::make_shared<GifticonServiceImpl>(
      networkConfig, std::make_shared<HTTPClientImpl>(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInitiated));
  return {
      .fetchGifticonsUseCase = std::make_shared<FetchGifticonUseCaseImpl>(service),
      .publishGifticonUseCase = std::make_shared<PublishGifticonUseCaseImpl>(service),
      .fetchConfigUseCase = fetchConfigUseCase,
  };
}

}  // namespace

GifticonComponent::GifticonComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                                     const NetworkConfig& networkConfig)
    : router(std::make_shared<GifticonRouter>(std::make_shared<GifticonViewControllerFactoryImpl>(
          makeUseCases(fetchConfigUseCase, networkConfig)))) {}

}  // namespace orrelo
