#include "prove/HostRuns.h"
#include "prove/Proofs.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <array>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace orrelo::prove {
namespace {

using namespace std::chrono_literals;
using devservice::Fault;

/// Kills the host in one state; `arrange` brings it about and returns what ends it when destroyed.
Line killIn(const std::string& program, const std::string& name, int kills, unsigned seed,
            const std::function<std::shared_ptr<void>(HostRuns&)>& arrange) {
  HostRuns runs(program, "kills: " + name);
  runs.prepare();
  auto arranged = arrange(runs);
  std::mt19937 random(seed);
  for (int i = 0; i < kills; ++i) runs.ledger.addLines(runs.runAndKill(std::to_string(i), 1ms, 60ms, random));
  arranged.reset();
  runs.settle();
  return runs.line(static_cast<std::size_t>(kills));
}

std::shared_ptr<void> answerAll503(HostRuns& runs) {
  runs.service.orderFault({.kind = Fault::Kind::status, .status = 503});
  return nullptr;
}

std::shared_ptr<void> hangConfiguration(HostRuns& runs) {
  runs.service.orderFault({.kind = Fault::Kind::hang, .pathSuffix = "/config"});
  return nullptr;
}

std::shared_ptr<void> lockStore(HostRuns& runs) {
  auto store = std::make_shared<SQLite::Database>((runs.data() / "OLSCoreDataEvent.sqlite").string(),
                                                  SQLite::OPEN_READWRITE, 5000);
  store->exec("BEGIN IMMEDIATE");
  return store;
}

/// The requests of an event that the service answers last as long as this.
constexpr auto answerTime = 20ms;

/// The pairs of requests of two living processes that the service has handled at the same time.
std::size_t overlaps(const HostRuns& runs, const std::map<std::string, devservice::TimePoint>& deaths) {
  auto events = runs.service.events();
  std::sort(events.begin(), events.end(),
            [](const auto& a, const auto& b) { return a.firstArrival < b.firstArrival; });
  std::size_t count = 0;
  for (std::size_t i = 1; i < events.size(); ++i) {
    const auto sender = events[i - 1].headers.at("app_version");
    if (sender == events[i].headers.at("app_version")) continue;
    const auto began = events[i].firstArrival - answerTime;  // a request arrives in the store at its end
    const auto death = deaths.find(sender);
    const bool wasAlive = death == deaths.end() || death->second > began;
    if (wasAlive && began < events[i - 1].firstArrival - 1ms) ++count;
  }
  return count;
}

}  // namespace

bool proveKills(const std::string& program, int kills) {
  const std::array<std::pair<const char*, std::shared_ptr<void> (*)(HostRuns&)>, 4> states{
      {{"service well", [](HostRuns&) { return std::shared_ptr<void>(); }},
       {"service answers 503", &answerAll503},
       {"configuration hangs", &hangConfiguration},
       {"store locked", &lockStore}}};
  bool isGood = true;
  for (unsigned pair = 0; pair < states.size(); pair += 2) {
    const auto inBackground = [&](unsigned i) {
      return std::async(std::launch::async, killIn, program, states[i].first,
                        kills / 4 + (static_cast<int>(i) < kills % 4 ? 1 : 0), 20261122 + i,
                        states[i].second);
    };
    auto first = inBackground(pair);
    auto second = inBackground(pair + 1);
    for (const auto& line : {first.get(), second.get()}) {
      line.print();
      isGood = line.isGood() && isGood;
    }
  }
  return isGood;
}

bool proveProcesses(const std::string& program, std::chrono::seconds duration) {
  HostRuns runs(program, "eight processes");
  runs.prepare();
  runs.service.orderFault({.kind = Fault::Kind::delay, .pathSuffix = "/event", .delay = answerTime});
  const auto end = std::chrono::steady_clock::now() + duration;
  std::mutex mutex;
  std::map<std::string, devservice::TimePoint> deaths;
  std::size_t lives = 0;
  const auto liveAndDie = [&](unsigned process) {
    std::mt19937 random(process);
    for (int life = 0; std::chrono::steady_clock::now() < end; ++life) {
      const auto prefix = std::to_string(process) + "-" + std::to_string(life);
      const auto longest = random() % 4 == 0 ? 20'000ms : 2'000ms;
      const auto output = runs.runAndKill(prefix, 30ms, longest, random);
      const std::lock_guard lock(mutex);
      runs.ledger.addLines(output);
      ++lives;
      if (!output.starts_with("pid ")) continue;  // it was killed before it could send
      deaths[output.substr(4, output.find('\n') - 4)] =
          std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
    }
  };
  std::vector<std::thread> threads;
  for (unsigned process = 0; process < 8; ++process) threads.emplace_back(liveAndDie, process);
  for (auto& thread : threads) thread.join();
  runs.settle();
  auto line = runs.line(lives);
  if (const auto count = overlaps(runs, deaths))
    line.outcome = std::to_string(count) + " requests of two senders at a time";
  line.print();
  return line.isGood();
}

}  // namespace orrelo::prove
