#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// Who took part in which campaign, how and when, in one SQLite file. Thread-safe; failures of the database
/// come as SQLite::Exception.
class ParticipationBook {
 public:
  struct Key {
    std::string appKey;
    std::string userId;
    std::string campaignId;
  };
  struct Entry {
    /// By which action of the campaign, and into which of its states.
    std::string action;
    std::string state;
    /// "yyyy-MM-dd"
    std::string day;
  };

  explicit ParticipationBook(const std::filesystem::path& file);

  void add(const Key& key, const Entry& entry);
  std::optional<Entry> last(const Key& key) const;
  /// On which this action was carried out, in the order of the calendar.
  std::vector<std::string> days(const Key& key, const std::string& action) const;

 private:
  mutable std::mutex mutex;
  mutable SQLite::Database database;
};

}  // namespace orrelo::devservice
