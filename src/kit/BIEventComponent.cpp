#include "kit/BIEventComponent.h"

#include "events/BIEventRemoteDataSource.h"
#include "events/BIEventRepository.h"
#include "kit/applicationSuite.h"
#include "network/HttpHeaderGenerator.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/EventDatabase.h>

namespace orrelo {
namespace {

std::shared_ptr<BIEventRepository> makeRepository(const std::string& appKey, const std::string& baseUrl) {
  const auto& platform = Platform::current();
  const BIEventNetworkConfig networkConfig{
      baseUrl + "sdk/" + appKey,
      withJsonContentType(HttpHeaderGenerator(applicationSuite(appKey)).generate())};
  const EventDao dao(platform.eventDatabases->open("BIEventCoreData", EventTimeStorage::date),
                     EventTimeStorage::date);
  return std::make_shared<BIEventRepositoryImpl>(
      dao, BIEventRemoteDataSource(networkConfig, std::make_shared<HTTPClientImpl>()),
      reactive::MainScheduler::instance(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::background),
      [clock = platform.clock] { return clock->now(); });
}

}  // namespace

BIEventComponent::BIEventComponent(const std::string& appKey, const std::string& baseUrl)
    : saveBIEventUseCase(makeRepository(appKey, baseUrl)) {}

}  // namespace orrelo
