// Compares emptying the store over HTTPS with a bare curl client that posts as many events.
#include "Benches.h"
#include "DevService.h"
#include "Targets.h"
#include "base/JsonWriter.h"
#include "events/BIEventRemoteDataSource.h"
#include "events/BIEventRepository.h"
#include "events/EventRemoteDTO.h"
#include "support/ObservedDatabase.h"
#include "support/TemporaryFolder.h"
#include "support/Twins.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>
#include <orrelo/platform/URLSession.h>

#include <curl/curl.h>
#include <future>
#include <stdexcept>

namespace orrelo::bench {
namespace {

constexpr std::size_t eventCount = 1000;
constexpr std::size_t batchSize = 900;

std::vector<Event> makeEvents() {
  std::vector<Event> events;
  for (std::size_t i = 0; i < eventCount; ++i) {
    events.push_back({Platform::current().random->uuid(),
                      "user-1",
                      "ol_visit",
                      {{"page_name", "attendance"}, {"campaign_id", std::to_string(i)}},
                      Platform::current().clock->now()});
  }
  return events;
}

std::string bodyOf(std::span<const Event> events) {
  JsonWriter json;
  json.beginArray();
  for (const auto& event : events) EventRemoteDTO(event).encode(json);
  json.endArray();
  return std::move(json).result();
}

// A curl client whose connection is opened before the measurement starts.
class BareClient {
 public:
  BareClient(const std::string& baseUrl, const std::string& certificate) : easy_(curl_easy_init()) {
    headers_ = curl_slist_append(headers_, "Content-Type: application/json");
    headers_ = curl_slist_append(headers_, "Expect:");
    curl_easy_setopt(easy_, CURLOPT_CAINFO, certificate.c_str());
    curl_easy_setopt(easy_, CURLOPT_HTTPHEADER, headers_);
    curl_easy_setopt(easy_, CURLOPT_URL, (baseUrl + "/orreloservice/sdk/bare/events").c_str());
    curl_easy_setopt(
        easy_, CURLOPT_WRITEFUNCTION, +[](char*, std::size_t, std::size_t size, void*) { return size; });
    post("[]");
  }
  ~BareClient() {
    curl_slist_free_all(headers_);
    curl_easy_cleanup(easy_);
  }
  BareClient(const BareClient&) = delete;
  BareClient& operator=(const BareClient&) = delete;

  void post(const std::string& body) {
    curl_easy_setopt(easy_, CURLOPT_POSTFIELDSIZE, static_cast<long>(body.size()));
    curl_easy_setopt(easy_, CURLOPT_POSTFIELDS, body.c_str());
    long status = 0;
    if (curl_easy_perform(easy_) != CURLE_OK) throw std::runtime_error("the service does not answer");
    curl_easy_getinfo(easy_, CURLINFO_RESPONSE_CODE, &status);
    if (status / 100 != 2) throw std::runtime_error("the service refused");
  }

 private:
  CURL* easy_;
  curl_slist* headers_ = nullptr;
};

// The kit's upload pipeline over a new store, driven by manual ticks.
class KitDrain {
 public:
  KitDrain(const std::string& baseUrl, const std::string& storeName)
      : loop_(std::make_shared<test::ManualLoop>(std::make_shared<test::ManualClock>())),
        database_(std::make_shared<test::ObservedDatabase>(
            Platform::current().eventDatabases->open(storeName, EventTimeStorage::date))),
        dao_(database_, EventTimeStorage::date),
        repository_(
            dao_,
            BIEventRemoteDataSource(
                {baseUrl + "/orreloservice/sdk/kit", {{"Content-Type", "application/json"}}},
                std::make_shared<HTTPClientImpl>()),
            std::make_shared<LoopScheduler>(loop_),
            std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::background),
            [clock = Platform::current().clock] { return clock->now(); }) {
    database_->onDeleted = [this](const std::vector<std::string>&) { deleted_.set_value(); };
  }

  void fill(const std::vector<Event>& events) {
    std::promise<void> done;
    for (std::size_t i = 0; i < events.size(); ++i) {
      database_->insert(EventMapper(EventTimeStorage::date).toRow(events[i]),
                        [&, isLast = i + 1 == events.size()](const auto&) {
                          if (isLast) done.set_value();
                        });
    }
    done.get_future().wait();
  }

  void tick() {
    deleted_ = {};
    auto deleted = deleted_.get_future();
    loop_->runFor(std::chrono::seconds(30));
    deleted.wait();
  }

 private:
  class LoopScheduler final : public reactive::Scheduler {
   public:
    explicit LoopScheduler(std::shared_ptr<test::ManualLoop> loop) : loop_(std::move(loop)) {}
    std::chrono::microseconds now() const override { return loop_->now(); }
    void schedule(Task task) override { loop_->post(std::move(task)); }
    void scheduleAfter(std::chrono::microseconds delay, Task task) override {
      loop_->postAfter(delay, std::move(task));
    }

   private:
    std::shared_ptr<test::ManualLoop> loop_;
  };

  std::promise<void> deleted_;
  std::shared_ptr<test::ManualLoop> loop_;
  std::shared_ptr<test::ObservedDatabase> database_;
  EventDao dao_;
  BIEventRepositoryImpl repository_;
};

std::vector<double> measureDrain() {
  const test::TemporaryFolder folder;
  devservice::DevService service({.dataDirectory = folder.path() / "service"});
  service.start();
  Platform::install(Platform::posix({.bundleIdentifier = "bench",
                                     .shortVersion = "",
                                     .bundleVersion = "",
                                     .dataDirectory = folder.path() / "kit",
                                     .cacheDirectory = folder.path() / "kit"}));
  Platform::current().urlSession->trust(service.baseUrl(), service.certificatePath().string());
  // Starts a worker, as `initialize` does; the stores' thread, which posts here first, cannot start one.
  Platform::current().workers->post(QualityOfService::background, [] {});
  BareClient bare(service.baseUrl(), service.certificatePath().string());

  std::vector<double> bareTimes;
  std::vector<double> kitTimes;
  for (int round = 0; round < 21; ++round) {
    const auto forBare = makeEvents();
    const std::span<const Event> all(forBare);
    const auto first = bodyOf(all.first(batchSize));
    const auto second = bodyOf(all.subspan(batchSize));
    auto start = std::chrono::steady_clock::now();
    bare.post(first);
    bare.post(second);
    bareTimes.push_back(secondsSince(start));

    auto* const kit = new KitDrain(service.baseUrl(), "Drain" + std::to_string(round));
    kit->fill(makeEvents());
    start = std::chrono::steady_clock::now();
    kit->tick();
    kit->tick();
    kitTimes.push_back(secondsSince(start));
  }
  // The first round is dropped because it opened the kit's connection.
  kitTimes.erase(kitTimes.begin());
  return {quantile(kitTimes, 0.5) / quantile(bareTimes, 0.5)};
}

}  // namespace

void addDrain() {
  add({{"draining 1,000 events, time against bare curl", "x", 3}}, &measureDrain);
}

}  // namespace orrelo::bench
