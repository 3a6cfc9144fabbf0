// Compares saving with plain SQLite, in a burst and for single events.
#include "Benches.h"
#include "PlainStore.h"
#include "Targets.h"
#include "events/EventRemoteDataSource.h"
#include "events/EventRepository.h"
#include "support/ObservedDatabase.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>

#include <condition_variable>
#include <mutex>

namespace orrelo::bench {
namespace {

// A client whose requests never complete, because only the way into the store is measured.
class SilentClient final : public HTTPClient {
 public:
  reactive::Observable<HTTPReply> run(URLRequest) override { return silence_.asObservable(); }

 private:
  reactive::PublishSubject<HTTPReply> silence_;
};

Event makeSample(std::size_t number) {
  std::string value(200, 'v');
  value.replace(0, 8, std::to_string(10'000'000 + number));
  const auto& platform = Platform::current();
  return {platform.random->uuid(), "user-1", "purchase", {{"value", value}}, platform.clock->now()};
}

// Saves through the kit: repository, pipeline, worker pool, writer thread.
class KitStore {
 public:
  explicit KitStore(const test::TemporaryFolder& folder) {
    auto platform = Platform::posix({.bundleIdentifier = "bench",
                                     .shortVersion = "",
                                     .bundleVersion = "",
                                     .dataDirectory = folder.path() / "kit",
                                     .cacheDirectory = folder.path() / "kit"});
    Platform::install(platform);
    database_ = std::make_shared<test::ObservedDatabase>(
        platform.eventDatabases->open("Bench", EventTimeStorage::text));
    database_->onInserted = [this](const std::string&) {
      const std::lock_guard lock(mutex_);
      lastCommit_ = std::chrono::steady_clock::now();
      if (++committed_ == awaited_) changed_.notify_one();
    };
    repository_ = std::make_unique<EventRepositoryImpl>(
        EventDao(database_, EventTimeStorage::text),
        EventRemoteDataSource({"https://localhost", {}}, std::make_shared<SilentClient>()),
        reactive::MainScheduler::instance(),
        std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::utility),
        [clock = platform.clock] { return clock->now(); }, [](const Event&) {}, [](const Error&) {});
  }

  void save(const Event& event) { repository_->save(event, false, nullptr); }

  // Waits for `count` more commits and returns the time of the last one.
  std::chrono::steady_clock::time_point waitForCommits(std::size_t count) {
    std::unique_lock lock(mutex_);
    awaited_ = counted_ + count;
    changed_.wait(lock, [this] { return committed_ >= awaited_; });
    counted_ = committed_;
    return lastCommit_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t committed_ = 0;
  std::size_t counted_ = 0;
  std::chrono::steady_clock::time_point lastCommit_;
  std::size_t awaited_ = SIZE_MAX;
  std::shared_ptr<test::ObservedDatabase> database_;
  std::unique_ptr<EventRepositoryImpl> repository_;
};

std::vector<double> measureBurst() {
  constexpr std::size_t kitCount = 100'000;
  constexpr std::size_t plainCount = 30'000;
  const test::TemporaryFolder folder;
  std::vector<Event> events;
  for (std::size_t i = 0; i < kitCount; ++i) events.push_back(makeSample(i));

  PlainStore plain(folder);
  auto start = std::chrono::steady_clock::now();
  for (std::size_t i = 0; i < plainCount; ++i) plain.save(events[i]);
  const double plainRate = plainCount / secondsSince(start);

  auto* const kit = new KitStore(folder);  // its pipeline outlives the measurement
  start = std::chrono::steady_clock::now();
  for (const auto& event : events) kit->save(event);
  kit->waitForCommits(kitCount);
  const double kitRate = kitCount / secondsSince(start);
  return {kitRate / plainRate, plainRate};
}

std::vector<double> measureAlone() {
  const test::TemporaryFolder folder;
  PlainStore plain(folder);
  auto* const kit = new KitStore(folder);
  std::vector<double> plainTimes;
  std::vector<double> kitTimes;
  for (std::size_t i = 0; i < 2000; ++i) {
    const auto event = makeSample(i);
    auto start = std::chrono::steady_clock::now();
    plain.save(event);
    plainTimes.push_back(secondsSince(start));
    start = std::chrono::steady_clock::now();
    kit->save(event);
    kitTimes.push_back(std::chrono::duration<double>(kit->waitForCommits(1) - start).count());
  }
  const double plainTime = quantile(plainTimes, 0.5);
  return {quantile(kitTimes, 0.5) / plainTime, plainTime * 1e6};
}

}  // namespace

void addSave() {
  add({{"burst of 100,000 saves, rate against plain SQLite", "x", 4, true},
       {"plain SQLite, rows a second", "1/s"}},
      &measureBurst);
  add({{"one save alone, time against plain SQLite", "x", 3}, {"plain SQLite, one row", "us"}},
      &measureAlone);
}

}  // namespace orrelo::bench
