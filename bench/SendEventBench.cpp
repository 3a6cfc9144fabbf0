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

EventValues fiveValues() {
  return {
      {"campaign", "attendance"}, {"count", 12}, {"first", true}, {"item", "blue shoes"}, {"price", 39.9}};
}

// The host makes its values before the call, and moves them in.
void sendEvent(EventValues& values) {
  Orrelo::sendEvent("purchase", std::move(values));
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
  std::fprintf(stderr, "ns: event p50 %.0f p99 %.0f, post p50 %.0f p99 %.0f\n", quantile(events, 0.5),
               quantile(events, 0.99), quantile(posts, 0.5), quantile(posts, 0.99));
  return {quantile(events, 0.5) / quantile(posts, 0.5), quantile(events, 0.99) / quantile(posts, 0.99)};
}

// In turns, so that both meet the same load; long enough that the pool works while it is being fed.
std::vector<double> measureTight() {
  constexpr std::size_t burst = 10'000;
  std::vector<double> events;
  std::vector<double> posts;
  for (int round = 0; round < 10; ++round) {
    for (std::size_t i = 0; i < burst; ++i) {
      auto values = fiveValues();
      events.push_back(timed([&values] { sendEvent(values); }));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    for (std::size_t i = 0; i < burst; ++i) posts.push_back(timed(&post));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return ratios(events, posts);
}

std::vector<double> measurePaced() {
  std::vector<double> events;
  std::vector<double> posts;
  auto next = Clock::now();
  for (int i = 0; i < 1500; ++i) {
    std::this_thread::sleep_until(next += std::chrono::milliseconds(5));
    auto values = fiveValues();
    events.push_back(timed([&values] { sendEvent(values); }));
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
    Orrelo::sendEvent("purchase", fiveValues());
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
