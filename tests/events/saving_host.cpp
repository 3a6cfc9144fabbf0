// Saves events until it is killed, and prints the id of each once its insert has completed.
// Usage: saving_host <data folder> <service URL> <certificate file>
#include "events/EventRemoteDataSource.h"
#include "events/EventRepository.h"
#include "support/ObservedDatabase.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>
#include <orrelo/platform/URLSession.h>

#include <atomic>
#include <thread>
#include <unistd.h>

int main(int count, char** words) {
  using namespace orrelo;
  if (count != 4) return 2;
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.kill",
                                     .shortVersion = "",
                                     .bundleVersion = "",
                                     .dataDirectory = words[1],
                                     .cacheDirectory = words[1]}));
  const auto& platform = Platform::current();
  platform.urlSession->trust(words[2], words[3]);

  static std::atomic<int> underWay = 0;
  const auto database = std::make_shared<test::ObservedDatabase>(
      platform.eventDatabases->open("OLSCoreDataEvent", EventTimeStorage::text));
  database->onInserted = [](const std::string& id) {
    const auto line = id + "\n";
    if (write(STDOUT_FILENO, line.data(), line.size()) < 0) _exit(1);
    --underWay;
  };
  EventRepositoryImpl repository(
      EventDao(database, EventTimeStorage::text),
      EventRemoteDataSource(
          {std::string(words[2]) + "/orreloservice/sdk/kill", {{"Content-Type", "application/json"}}},
          std::make_shared<HTTPClientImpl>()),
      reactive::MainScheduler::instance(),
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::utility),
      [clock = platform.clock] { return clock->now(); }, [](const Event&) {}, [](const Error&) {});
  while (true) {
    while (underWay > 32) std::this_thread::yield();
    ++underWay;
    repository.save(
        {platform.random->uuid(), "user", "saved", {{"k", std::string(200, 'v')}}, platform.clock->now()},
        false, nullptr);
  }
}
