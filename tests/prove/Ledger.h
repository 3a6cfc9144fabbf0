#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace orrelo::prove {

/// Compares the events that a host reported with those that were stored or delivered. An event bears its
/// number as the value "n" (the kit's own events as "campaign_id").
class Ledger {
 public:
  /// The host's call for this event has returned.
  void addTold(const std::string& number) { told_.insert(number); }
  /// Reads the lines of a host: "told <number>", "sent <number> <id>" and "memory <number>".
  void addLines(const std::string& output);
  /// An event was delivered, or lies in a store.
  void addFound(const std::string& number, const std::string& eventId) { found_[number].insert(eventId); }
  /// Adds the rows of all stores in the folder, those set aside too, and returns their ids.
  std::set<std::string> addStores(const std::filesystem::path& data);
  /// Copies what was found.
  void addFoundOf(const Ledger& other);

  std::size_t told() const { return told_.size(); }
  /// The events that waited in memory alone and were gone after the end of the process, as documented.
  std::size_t goneFromMemory() const;
  /// All that was found.
  std::set<std::string> ids() const;
  std::set<std::string> numbers() const;
  std::vector<std::string> lost() const;
  /// The events that were found under more than one id.
  std::vector<std::string> underTwoIds() const;
  /// Deliveries and rows beyond one for each id.
  std::size_t repeats = 0;

 private:
  std::set<std::string> told_;
  std::set<std::string> inMemory_;
  std::map<std::string, std::set<std::string>> found_;
};

/// A line of the report. `outcome` names what was found wrong besides, and is empty if nothing was.
struct Line {
  std::string name;
  std::size_t runs = 0;
  std::size_t tried = 0;
  std::size_t lost = 0;
  std::size_t repeats = 0;
  std::size_t underTwoIds = 0;
  std::string outcome = {};
  std::string remark = {};

  bool isGood() const { return lost == 0 && underTwoIds == 0 && outcome.empty(); }
  void print() const;
};

}  // namespace orrelo::prove
