#include "prove/Ledger.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <sstream>

namespace orrelo::prove {
namespace {

std::string numberOf(const std::string& values) {
  const auto json = nlohmann::json::parse(values, nullptr, false);
  if (!json.is_object()) return {};
  return json.value("n", json.value("campaign_id", std::string()));
}

bool isStore(const std::string& name) {
  const bool isCompanion = name.ends_with("-wal") || name.ends_with("-shm") || name.ends_with("-journal") ||
                           name.ends_with(".lock");
  return !isCompanion && (name.starts_with("OLSCoreDataEvent") || name.starts_with("BIEventCoreData"));
}

}  // namespace

void Ledger::addLines(const std::string& output) {
  std::istringstream lines(output.substr(0, output.rfind('\n') + 1));  // a kill may cut the last line
  for (std::string word, number, id; lines >> word;) {
    if (word == "told" && lines >> number) addTold(number);
    if (word == "memory" && lines >> number) inMemory_.insert(number);
    if (word == "sent" && lines >> number >> id) addFound(number, id);
  }
}

std::set<std::string> Ledger::addStores(const std::filesystem::path& data) {
  std::set<std::string> ids;
  if (!std::filesystem::exists(data)) return ids;
  for (const auto& entry : std::filesystem::directory_iterator(data)) {
    if (!isStore(entry.path().filename().string()) || !entry.is_regular_file()) continue;
    try {
      SQLite::Database database(entry.path().string(), SQLite::OPEN_READWRITE, 5000);
      if (!database.tableExists("events")) continue;
      SQLite::Statement rows(database, "SELECT eventId, eventValues FROM events");
      while (rows.executeStep()) {
        const auto id = rows.getColumn(0).getString();
        if (!ids.insert(id).second) ++repeats;
        addFound(numberOf(rows.getColumn(1).getString()), id);
      }
    } catch (const SQLite::Exception& error) {
      std::fprintf(stderr, "prove: %s: %s\n", entry.path().c_str(), error.what());
    }
  }
  return ids;
}

void Ledger::addFoundOf(const Ledger& other) {
  for (const auto& [number, ids] : other.found_) found_[number].insert(ids.begin(), ids.end());
}

std::size_t Ledger::goneFromMemory() const {
  std::size_t gone = 0;
  for (const auto& number : inMemory_) gone += found_.contains(number) ? 0 : 1;
  return gone;
}

std::set<std::string> Ledger::ids() const {
  std::set<std::string> all;
  for (const auto& [number, ids] : found_) all.insert(ids.begin(), ids.end());
  return all;
}

std::set<std::string> Ledger::numbers() const {
  std::set<std::string> all;
  for (const auto& [number, ids] : found_) all.insert(number);
  return all;
}

std::vector<std::string> Ledger::lost() const {
  std::vector<std::string> lost;
  for (const auto& number : told_) {
    if (!found_.contains(number)) lost.push_back(number);
  }
  return lost;
}

std::vector<std::string> Ledger::underTwoIds() const {
  std::vector<std::string> doubled;
  for (const auto& [number, ids] : found_) {
    if (!number.empty() && ids.size() > 1) doubled.push_back(number);
  }
  return doubled;
}

void Line::print() const {
  std::printf("%-34s %8zu %9zu %6zu %9zu %10zu  %s%s%s\n", name.c_str(), runs, tried, lost, repeats,
              underTwoIds, isGood() ? "ok" : "FAILED", outcome.empty() ? "" : (": " + outcome).c_str(),
              remark.empty() ? "" : (" (" + remark + ")").c_str());
  std::fflush(stdout);
}

}  // namespace orrelo::prove
