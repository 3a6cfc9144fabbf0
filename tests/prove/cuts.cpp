#include "prove/FileCalls.h"
#include "prove/Ledger.h"
#include "prove/PowerCut.h"
#include "prove/Proofs.h"
#include "prove/VirtualKit.h"
#include "prove/script.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Orrelo.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>

namespace orrelo::prove {
namespace {

namespace fs = std::filesystem;
using Kind = Change::Kind;

/// A host that reports enough events for several checkpoints; some are delivered, and some stay in the store.
void busyLife(const fs::path& folder, const std::string& prefix, int start, int events) {
  using namespace std::chrono_literals;
  VirtualKit kit(folder, start);
  kit.onSent = [](const std::string& number, const std::string& id) {
    FileCalls::note(number + " " + id);
    writeLine("sent " + number + " " + id);
  };
  Orrelo::initialize(ORLConfig("prove"));
  kit.run(1s);
  for (int i = 0; i < events; ++i) {
    if (i == events / 3) kit.eventStatus = 503;
    kit.report(prefix + std::to_string(i), std::string(static_cast<std::size_t>(i % 7) * 700, 'v'));
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
      busyLife(live, std::to_string(life) + "-", life * 600, 1500);
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

/// The ids that a cut before the change `position` must leave: in the store at its last sync, or delivered.
std::size_t lostIds(const Recorded& recorded, std::size_t position, const std::set<std::string>& found) {
  const auto last = recorded.syncedIds.lower_bound(position);
  if (last == recorded.syncedIds.begin()) return 0;
  std::set<std::string> delivered;
  for (std::size_t i = 0; i < position; ++i) {
    const auto& change = recorded.changes[i];
    if (change.kind == Kind::note) delivered.insert(change.bytes.substr(change.bytes.find(' ') + 1));
  }
  std::size_t lost = 0;
  for (const auto& id : std::prev(last)->second) lost += found.contains(id) || delivered.contains(id) ? 0 : 1;
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
  std::mt19937 random(20261122);
  constexpr std::array kept{0.0, 0.1, 0.5, 0.9, 1.0};
  Line line{.name = "power cuts"};
  std::size_t crashes = 0;
  std::size_t setAside = 0;
  for (int i = 0; i < cuts; ++i) {
    const auto position = std::uniform_int_distribution<std::size_t>(1, recorded.changes.size())(random);
    Disk disk(folder / "live");
    for (std::size_t at = 0; at < position; ++at) disk.apply(recorded.changes[at]);
    const test::TemporaryFolder machine;
    disk.writeCut(machine.path(), kept[static_cast<std::size_t>(i) % kept.size()], random);

    const auto ended =
        runInChild(machine / "errors", [&] { settleLife(machine.path(), "after-" + std::to_string(i)); });
    Ledger ledger;
    ledger.addLines(ended.output);  // what was told in this life must not be lost either
    auto ids = ledger.addStores(machine / "data");
    ids.merge(ledger.ids());
    const auto lost = lostIds(recorded, position, ids) + ledger.lost().size();
    line.lost += lost;
    line.tried += ids.size();
    line.repeats += ledger.repeats;
    ++line.runs;
    setAside += isSetAside(machine / "data") ? 1 : 0;
    recorded.ledger.addFoundOf(ledger);
    if (!ended.isWell()) ++crashes;
    if (lost != 0 || !ended.isWell()) {
      std::fprintf(stderr, "cut %d before change %zu: lost %zu, status %d\n%s\n", i, position, lost,
                   ended.status, textOf(machine / "errors").c_str());
    }
  }
  line.underTwoIds = recorded.ledger.underTwoIds().size();
  if (crashes != 0) line.outcome = std::to_string(crashes) + " crashes";
  line.remark = std::to_string(recorded.changes.size()) + " changes, " +
                std::to_string(recorded.syncedIds.size()) + " syncs, stores set aside " +
                std::to_string(setAside);
  line.print();
  return line.isGood();
}

}  // namespace orrelo::prove
