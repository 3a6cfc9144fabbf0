#include "prove/HostRuns.h"

#include <thread>
#include <utility>

namespace orrelo::prove {

using namespace std::chrono_literals;

HostRuns::HostRuns(std::string program, std::string name)
    : program_(std::move(program)), name_(std::move(name)), service({.dataDirectory = folder_ / "service"}) {
  service.start();
}

std::unique_ptr<test::Program> HostRuns::start(const std::string& prefix,
                                               std::chrono::microseconds pause) const {
  return std::make_unique<test::Program>(
      std::vector<std::string>{program_, "host", data().string(), service.baseUrl(),
                               service.certificatePath().string(), prefix, std::to_string(pause.count())});
}

std::string HostRuns::runAndKill(const std::string& prefix, std::chrono::microseconds pause,
                                 std::chrono::milliseconds longest, std::mt19937& random) const {
  const auto host = start(prefix, pause);
  // Some die while they start.
  if (random() % 10 != 0) host->written("told");
  std::this_thread::sleep_for(std::chrono::microseconds(random() % static_cast<unsigned>(longest / 1us)));
  host->end();
  return host->output();
}

void HostRuns::prepare() {
  const auto host = start("prepare", 1ms);
  if (!service.waitForEvents(1, 30s)) throw std::runtime_error("the host has delivered nothing");
  host->end();
  ledger.addLines(host->output());
}

void HostRuns::settle() {
  service.clearFaults();
  const auto host = start("", 0us);
  for (int i = 0; i < 60; ++i) {
    std::this_thread::sleep_for(1s);
    addFound();
    if (ledger.lost().empty()) return;
  }
}

void HostRuns::addFound() {
  for (const auto& event : service.events()) {
    const auto number = event.values.find("n");
    if (number != event.values.end()) ledger.addFound(number->second, event.eventId);
  }
  ledger.repeats = 0;
  ledger.addStores(data());
  ledger.repeats += static_cast<std::size_t>(service.deliveryCount() - service.eventCount());
}

Line HostRuns::line(std::size_t runs) {
  addFound();
  const auto lost = ledger.lost();
  return {.name = name_,
          .runs = runs,
          .tried = ledger.told(),
          .lost = lost.size(),
          .repeats = ledger.repeats,
          .underTwoIds = ledger.underTwoIds().size(),
          .remark = lost.empty() ? std::to_string(service.eventCount()) + " delivered"
                                 : "lost first: " + lost.front()};
}

}  // namespace orrelo::prove
