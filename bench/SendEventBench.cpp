// Compares `sendEvent` on the caller's thread with the least that it must do: a bare post to the same worker
// pool and one bare write of a record of the same size to a file, while uploads run.
#include "Benches.h"
#include "DevService.h"
#include "PlainStore.h"
#include "Targets.h"
#include "base/PageOmissions.h"
#include "events/EventRecord.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Orrelo.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>
#include <orrelo/platform/WorkerPool.h>

#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orrelo::bench {
namespace {

using Clock = std::chrono::steady_clock;

EventValues fiveValues() {
  return {
      {"campaign", "attendance"}, {"count", 12}, {"first", true}, {"item", "blue shoes"}, {"price", 39.9}};
}

// The host builds its values before the call, outside the measurement, and moves them in.
void sendEvent(EventValues& values) {
  Orrelo::sendEvent("purchase", std::move(values));
}

/// A file that is opened as the journal's is, and a record of the size of the event's.
struct BareFile {
  test::TemporaryFolder folder;
  const std::string record{EventRecord::encode({}, {}, "user-1", "purchase", fiveValues()).view()};
  const int descriptor =
      open((folder.path() / "bare").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
};

void writeAndPost() {
  static const auto* const file = new BareFile;
  if (write(file->descriptor, file->record.data(), file->record.size()) < 0) std::abort();
  Platform::current().workers->post(QualityOfService::utility, [] {});
}

template <class Call>
double timed(Call call) {
  const auto start = Clock::now();
  call();
  return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

std::vector<double> ratios(std::vector<double>& events, std::vector<double>& posts) {
  const double p50 = quantile(posts, 0.5);
  const double p99 = quantile(posts, 0.99);
  return {quantile(events, 0.5) / p50, quantile(events, 0.99) / p99, p50, p99};
}

// Alternates bursts of both calls, so that they meet the same load. Each burst is long enough for the pool to
// work while it is being fed. The first round is dropped, because page faults slow it down.
std::vector<double> measureTight() {
  constexpr std::size_t burst = 10'000;
  std::vector<double> events;
  std::vector<double> posts;
  for (int round = 0; round <= 10; ++round) {
    if (round == 1) {
      events.clear();
      posts.clear();
    }
    for (std::size_t i = 0; i < burst; ++i) {
      auto values = fiveValues();
      events.push_back(timed([&values] { sendEvent(values); }));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    // The host's own work between the calls is the same, so that caches are as cold for both.
    for (std::size_t i = 0; i < burst; ++i) {
      const auto values = fiveValues();
      posts.push_back(timed(&writeAndPost));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return ratios(events, posts);
}

// An event's work still runs at the next turn and changes that call's time. The turns are therefore event,
// post, post, event, so that each kind follows an event as often as a post.
std::vector<double> measurePaced() {
  std::vector<double> events;
  std::vector<double> posts;
  auto next = Clock::now();
  for (int turn = 0; turn < 1600; ++turn) {
    std::this_thread::sleep_until(next += std::chrono::milliseconds(5));
    auto values = fiveValues();
    if (turn % 4 == 0 || turn % 4 == 3) {
      events.push_back(timed([&values] { sendEvent(values); }));
    } else {
      posts.push_back(timed(&writeAndPost));
    }
  }
  return ratios(events, posts);
}

// Returns the 99.9th percentile in microseconds, one call each 5 ms, beside a process that writes and syncs
// all the time.
double measureBesideSync() {
  const test::TemporaryFolder folder;
  const auto file = (folder.path() / "synced").string();
  const auto command =
      "while dd if=/dev/zero of='" + file + "' bs=1M count=8 conv=fsync 2>/dev/null; do :; done";
  const auto writer = fork();
  if (writer == 0) {
    setpgid(0, 0);
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
  }
  std::vector<double> events;
  auto next = Clock::now();
  for (int turn = 0; turn < 2000; ++turn) {
    std::this_thread::sleep_until(next += std::chrono::milliseconds(5));
    auto values = fiveValues();
    events.push_back(timed([&values] { sendEvent(values); }));
  }
  kill(-writer, SIGKILL);
  waitpid(writer, nullptr, 0);
  return quantile(events, 0.999) / 1e3;
}

// Reports events as fast as possible and waits until all of them are committed.
std::vector<double> measureBurst() {
  constexpr int kitCount = 100'000;
  constexpr int plainCount = 30'000;
  const test::TemporaryFolder folder;
  const std::string text(200, 'v');
  PlainStore plain(folder);
  const auto& platform = Platform::current();
  auto start = Clock::now();
  for (int i = 0; i < plainCount; ++i) {
    plain.save({platform.random->uuid(), "user-1", "purchase", {{"value", text}}, platform.clock->now()});
  }
  const double plainRate = plainCount / secondsSince(start);
  start = Clock::now();
  for (int i = 0; i < kitCount; ++i) Orrelo::sendEvent("purchase", {{"value", text}});
  if (!Orrelo::flush(std::chrono::minutes(1))) std::abort();
  return {kitCount / secondsSince(start) / plainRate, plainRate};
}

// A snapshot after many requests and of pages with many faults, with and without its JSON, in milliseconds.
std::vector<double> measureDiagnostics() {
  JsonParser parser;
  const auto object = parser.parse(R"({"page":{}})").objectValue();
  for (std::size_t page = 0; page < ORLDiagnostics::maximumPages; ++page) {
    PageOmissions::collect({}, "/campaigns/1", [&] {
      for (std::size_t i = 0; i < ORLDiagnostics::Page::maximumOmissions; ++i) {
        explainOmission(object, "/page", [] { return std::string(100, 'x'); });
      }
      return 0;
    });
  }
  std::vector<double> snapshots;
  std::vector<double> texts;
  for (int i = 0; i < 1000; ++i) {
    snapshots.push_back(timed([] { Orrelo::diagnostics(); }) / 1e6);
    texts.push_back(timed([] { Orrelo::diagnostics().json(); }) / 1e6);
  }
  return {quantile(snapshots, 0.5), quantile(snapshots, 0.99), quantile(texts, 0.5)};
}

// The kit, sending to a service, for the lifetime of the process.
struct Kit {
  Kit();
  test::TemporaryFolder folder;
  devservice::DevService service{{.dataDirectory = folder.path() / "service"}};
};

Kit::Kit() {
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

// Starts the kit at the first call only, since a filter may select one of the measurements.
void startKit() {
  static const auto* const kit = new Kit;
  static_cast<void>(kit);
}

}  // namespace

void addSendEvent() {
  add({{"sendEvent, tight: p50 against a bare write and post", "x", 1.4},
       {"sendEvent, tight: p99 against a bare write and post", "x", 2},
       {"bare write and post, tight: p50", "ns"},
       {"bare write and post, tight: p99", "ns"}},
      [] {
        startKit();
        return measureTight();
      });
  add({{"sendEvent, each 5 ms: p50 against a bare write and post", "x", 1.5},
       {"sendEvent, each 5 ms: p99 against a bare write and post", "x", 2},
       {"bare write and post, each 5 ms: p50", "ns"},
       {"bare write and post, each 5 ms: p99", "ns"}},
      [] {
        startKit();
        return measurePaced();
      });
  add({{"sendEvent beside a process that writes and syncs: p99.9", "us"}}, [] {
    startKit();
    return std::vector{measureBesideSync()};
  });
  add({{"burst of 100,000 events, stored, rate against plain SQLite", "x", 4, true},
       {"plain SQLite beside the burst, rows a second", "1/s"}},
      [] {
        startKit();
        return measureBurst();
      });
  add({{"diagnostics: p50", "ms", 0.2}, {"diagnostics: p99", "ms"}, {"diagnostics with its JSON: p50", "ms"}},
      [] {
        startKit();
        return measureDiagnostics();
      });
}

}  // namespace orrelo::bench
