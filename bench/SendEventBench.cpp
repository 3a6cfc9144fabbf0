// `sendEvent` on the caller's thread against a bare post to the same worker pool, while uploads run.
#include "Benches.h"
#include "DevService.h"
#include "Targets.h"
#include "platform/WorkerPool.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Orrelo.h>

#include <thread>

namespace orrelo::bench {
namespace {

using Clock = std::chrono::steady_clock;

const EventValues& fiveValues() {
  static const EventValues values{
      {"campaign", "attendance"}, {"count", 12}, {"first", true}, {"item", "blue shoes"}, {"price", 39.9}};
  return values;
}

void sendEvent() {
  Orrelo::sendEvent("purchase", fiveValues());
}

void post() {
  Platform::current().workers->post(QualityOfService::utility, [] {});
}

template <class Call>
double timed(Call call) {
  const auto start = Clock::now();
  call();
  return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

std::vector<double> ratios(std::vector<double>& events, std::vector<double>& posts) {
  return {quantile(events, 0.5) / quantile(posts, 0.5), quantile(events, 0.99) / quantile(posts, 0.99)};
}

// In turns of short bursts, so that both meet the same load.
std::vector<double> measureTight() {
  std::vector<double> events;
  std::vector<double> posts;
  for (int round = 0; round < 100; ++round) {
    for (int i = 0; i < 200; ++i) events.push_back(timed(&sendEvent));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    for (int i = 0; i < 200; ++i) posts.push_back(timed(&post));
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return ratios(events, posts);
}

std::vector<double> measurePaced() {
  std::vector<double> events;
  std::vector<double> posts;
  auto next = Clock::now();
  for (int i = 0; i < 1500; ++i) {
    std::this_thread::sleep_until(next += std::chrono::milliseconds(5));
    events.push_back(timed(&sendEvent));
    std::this_thread::sleep_until(next += std::chrono::milliseconds(5));
    posts.push_back(timed(&post));
  }
  return ratios(events, posts);
}

// The kit at work against a service, for the life of the process.
void startKit() {
  static const test::TemporaryFolder folder;
  static devservice::DevService service({.dataDirectory = folder.path() / "service"});
  service.start();
  Platform::install(Platform::posix({.bundleIdentifier = "bench",
                                     .shortVersion = "1",
                                     .bundleVersion = "1",
                                     .dataDirectory = folder.path() / "kit",
                                     .cacheDirectory = folder.path() / "kit"}));
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", service.baseUrl());
  suite->set("ORRELO_DEVELOPMENT_CA", service.certificatePath().string());
  Orrelo::initialize(ORLConfig("bench-app"));
  Orrelo::setUser(ORLUser("user-1", ORLMarketingStatus::optIn, {}));
  if (!service.waitForRequests("/config", 1, std::chrono::seconds(10))) std::abort();
  do {
    sendEvent();
  } while (!service.waitForEvents(1, std::chrono::milliseconds(200)));
}

}  // namespace

void addSendEvent() {
  add({{"sendEvent, tight: p50 against a bare post", "x", 2.5},
       {"sendEvent, tight: p99 against a bare post", "x", 2.5}},
      [] {
        startKit();
        return measureTight();
      });
  add({{"sendEvent, each 5 ms: p50 against a bare post", "x", 2.5},
       {"sendEvent, each 5 ms: p99 against a bare post", "x", 2.5}},
      &measurePaced);
}

}  // namespace orrelo::bench
