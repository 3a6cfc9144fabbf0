#include "prove/FileCalls.h"
#include "prove/Ledger.h"
#include "prove/PowerCut.h"
#include "prove/Proofs.h"
#include "prove/VirtualKit.h"
#include "prove/script.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Orrelo.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

namespace orrelo::prove {
namespace {

namespace fs = std::filesystem;
using Kind = Change::Kind;

/// The system writes changes back after 30 seconds, and looks for them every 5.
constexpr int writeBackSeconds = 35;
constexpr int eventsPerSecond = 15;

/// A host that reports enough events for several checkpoints. Some are delivered, some stay in the store, and
/// some wait for the configuration while the journal is replaced.
void busyLife(const fs::path& folder, const std::string& prefix, int start, int events) {
  using namespace std::chrono_literals;
  VirtualKit kit(folder, start);
  kit.onSent = [](const std::string& number, const std::string& id) {
    FileCalls::note("sent " + number + " " + id);
    writeLine("sent " + number + " " + id);
  };
  Orrelo::initialize(ORLConfig("prove"));
  kit.run(1s);
  for (int i = 0; i < events; ++i) {
    if (i == events / 3) kit.eventStatus = 503;
    // The configuration expires after 60 seconds, that is 885 events.
    kit.configStatus = i >= 880 && i < 900 ? 0 : 200;
    kit.report(prefix + std::to_string(i), std::string(static_cast<std::size_t>(i % 7) * 700, 'v'));
    FileCalls::note("told " + prefix + std::to_string(i));
    if (i % 3 == 0) kit.run(200ms);
  }
}

std::string textOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What the disk is sure to hold at some moment, by the number of changes before it.
struct Recorded {
  std::vector<Change> changes;
  /// The ids in the stores at each sync of a store's log or file.
  std::map<std::size_t, std::set<std::string>> syncedIds;
  Ledger ledger;
};

Recorded record(const fs::path& folder, const fs::path& scratch) {
  const auto live = folder / "live";
  fs::create_directories(live);
  Recorded recorded;
  for (int life = 0; life < 2; ++life) {
    const auto ended = runInChild(scratch / "errors", [&] {
      FileCalls::watch(live);
      FileCalls::record(folder / "log");
      busyLife(live, std::to_string(life) + "-", life * 600, 2400);
    });
    if (!ended.isWell())
      throw std::runtime_error("the recorded host has failed: " + textOf(scratch / "errors"));
    recorded.ledger.addLines(ended.output);
  }
  recorded.changes = Change::read(folder / "log");
  Disk disk(live);
  for (std::size_t i = 0; i < recorded.changes.size(); ++i) {
    const auto& change = recorded.changes[i];
    const bool isStore =
        change.path.find(".sqlite") != std::string::npos && change.path.find("defaults") == std::string::npos;
    if (change.kind == Kind::sync && isStore) {
      const test::TemporaryFolder copy;
      disk.writeWhole(copy.path());
      recorded.syncedIds[i] = recorded.ledger.addStores(copy / "data");
    }
    disk.apply(change);
  }
  const test::TemporaryFolder copy;
  disk.writeWhole(copy.path());
  recorded.ledger.addStores(copy / "data");
  return recorded;
}

/// What a cut has left: the ids and numbers in the files, and those that were delivered before or afterwards.
struct Left {
  std::set<std::string> ids;
  std::set<std::string> numbers;
};

/// The first change that may not have been written back when the power fails before the change `position`.
std::size_t writeBackEnd(const Recorded& recorded, std::size_t position) {
  int told = 0;
  std::size_t at = position;
  while (at > 0 && told < writeBackSeconds * eventsPerSecond) {
    --at;
    if (recorded.changes[at].bytes.starts_with("told ")) ++told;
  }
  return at;
}

std::set<std::string> numbersInStores(const Disk& disk) {
  const test::TemporaryFolder copy;
  disk.writeWhole(copy.path());
  Ledger ledger;
  ledger.addStores(copy / "data");
  return ledger.numbers();
}

/// The events that a cut must leave: those told before `writtenBack`, without those that were taken from the
/// journal into a store later.
std::set<std::string> wantedNumbers(const Recorded& recorded, std::size_t writtenBack,
                                    const std::set<std::string>& storedEarly,
                                    const std::set<std::string>& stored) {
  std::set<std::string> wanted;
  for (std::size_t i = 0; i < writtenBack; ++i) {
    const auto& text = recorded.changes[i].bytes;
    if (recorded.changes[i].kind != Kind::note || !text.starts_with("told ")) continue;
    const auto number = text.substr(5);
    if (storedEarly.contains(number) || !stored.contains(number)) wanted.insert(number);
  }
  return wanted;
}

/// The events that a cut must leave but has not: those in `wanted`, and those in the store at its last sync.
std::vector<std::string> lostEvents(const Recorded& recorded, std::size_t position,
                                    const std::set<std::string>& wanted, Left left) {
  for (std::size_t i = 0; i < position; ++i) {
    std::istringstream note(recorded.changes[i].kind == Kind::note ? recorded.changes[i].bytes : "");
    std::string kind, number, id;
    note >> kind >> number >> id;
    if (kind != "sent") continue;
    left.ids.insert(id);
    left.numbers.insert(number);
  }
  std::vector<std::string> lost;
  std::set_difference(wanted.begin(), wanted.end(), left.numbers.begin(), left.numbers.end(),
                      std::back_inserter(lost));
  const auto last = recorded.syncedIds.lower_bound(position);
  if (last == recorded.syncedIds.begin()) return lost;
  const auto& synced = std::prev(last)->second;
  std::set_difference(synced.begin(), synced.end(), left.ids.begin(), left.ids.end(),
                      std::back_inserter(lost));
  return lost;
}

bool isSetAside(const fs::path& data) {
  if (!fs::exists(data)) return false;
  for (const auto& entry : fs::directory_iterator(data)) {
    if (entry.path().filename().string().find(".corrupt-") != std::string::npos) return true;
  }
  return false;
}

}  // namespace

bool provePowerCuts(int cuts) {
  const test::TemporaryFolder folder;
  auto recorded = record(folder.path(), folder.path());
  // Half of the cuts come soon after a journal was removed, when the one in its place is new.
  std::vector<std::size_t> replacements;
  for (std::size_t at = 0; at + 20 < recorded.changes.size(); ++at) {
    const auto& change = recorded.changes[at];
    if (change.kind == Kind::unlink && change.path.ends_with(".journal")) replacements.push_back(at + 1);
  }
  std::mt19937 random(20261122);
  constexpr std::array kept{0.0, 0.1, 0.5, 0.9, 1.0};
  Line line{.name = "power cuts"};
  std::size_t crashes = 0;
  std::size_t setAside = 0;
  for (int i = 0; i < cuts; ++i) {
    const auto position = i % 2 == 0
                              ? std::uniform_int_distribution<std::size_t>(1, recorded.changes.size())(random)
                              : replacements[random() % replacements.size()] + random() % 20;
    Disk disk(folder / "live");
    const auto writtenBack = writeBackEnd(recorded, position);
    std::set<std::string> storedEarly;
    for (std::size_t at = 0; at < position; ++at) {
      if (at == writtenBack) {
        storedEarly = numbersInStores(disk);
        disk.sync();
      }
      disk.apply(recorded.changes[at]);
    }
    const auto wanted = wantedNumbers(recorded, writtenBack, storedEarly, numbersInStores(disk));
    const test::TemporaryFolder machine;
    disk.writeCut(machine.path(), kept[static_cast<std::size_t>(i) % kept.size()], random);

    const auto ended =
        runInChild(machine / "errors", [&] { settleLife(machine.path(), "after-" + std::to_string(i)); });
    Ledger ledger;
    ledger.addLines(ended.output);  // what was told in this life must not be lost either
    ledger.addStores(machine / "data");
    auto lost = lostEvents(recorded, position, wanted, {ledger.ids(), ledger.numbers()});
    for (auto& number : ledger.lost()) lost.push_back(std::move(number));
    line.lost += lost.size();
    line.tried += ledger.numbers().size();
    line.repeats += ledger.repeats;
    ++line.runs;
    setAside += isSetAside(machine / "data") ? 1 : 0;
    recorded.ledger.addFoundOf(ledger);
    if (!ended.isWell()) ++crashes;
    if (lost.empty() && ended.isWell()) continue;
    std::fprintf(stderr, "cut %d before change %zu: status %d, lost %zu, first %s\n%s\n", i, position,
                 ended.status, lost.size(), lost.empty() ? "-" : lost.front().c_str(),
                 textOf(machine / "errors").c_str());
  }
  line.underTwoIds = recorded.ledger.underTwoIds().size();
  if (crashes != 0) line.outcome = std::to_string(crashes) + " crashes";
  std::size_t replaced = 0;
  for (const auto& change : recorded.changes)
    replaced += change.kind == Kind::unlink && change.path.ends_with(".journal");
  line.remark = std::to_string(replaced) + " replaced journals, " + std::to_string(recorded.changes.size()) +
                " changes, " + std::to_string(recorded.syncedIds.size()) + " syncs, stores set aside " +
                std::to_string(setAside);
  line.print();
  return line.isGood();
}

}  // namespace orrelo::prove
