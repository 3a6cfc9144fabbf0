#include "kit/EventComponent.h"

#include "base/Logger.h"
#include "events/EventRemoteDataSource.h"
#include "events/EventRepository.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/EventDatabase.h>

namespace orrelo {
namespace {

std::shared_ptr<EventRepository> makeRepository(const NetworkConfig& networkConfig) {
  const auto& platform = Platform::current();
  const EventDao dao(platform.eventDatabases->open("OLSCoreDataEvent", EventTimeStorage::text),
                     EventTimeStorage::text);
  const EventNetworkConfig eventConfig{networkConfig.baseUrl, withJsonContentType(networkConfig.headers)};
  return std::make_shared<EventRepositoryImpl>(
      dao, EventRemoteDataSource(eventConfig, std::make_shared<HTTPClientImpl>()),
      reactive::MainScheduler::instance(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::utility),
      [clock = platform.clock] { return clock->now(); },
      [](const Event& event) {
        log(LogLevel::DEBUG, [&] { return "Event Processing Success " + description(event); });
      },
      [](const Error& error) {
        log(LogLevel::DEBUG, [&] { return "Event Processing Failure: " + error.description(); });
      });
}

}  // namespace

EventComponent::EventComponent(const NetworkConfig& networkConfig)
    : saveEventUseCase(makeRepository(networkConfig)) {}

}  // namespace orrelo
