#include "kit/ConfigComponent.h"

#include "config/ConfigLocalDataSource.h"
#include "config/ConfigRepository.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <utility>

namespace orrelo {

ConfigComponent::ConfigComponent(std::shared_ptr<UserDefaults> userDefaults,
                                 const ConfigNetworkConfig& networkConfig)
    : fetchConfigUseCase(std::make_shared<FetchConfigUseCaseImpl>(ConfigRepositoryImpl::create(
          ConfigLocalDataSource(std::move(userDefaults)),
          ConfigRemoteDataSource(networkConfig, std::make_shared<HTTPClientImpl>()),
          [clock = Platform::current().clock] { return clock->now(); },
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::standard)))) {}

}  // namespace orrelo
