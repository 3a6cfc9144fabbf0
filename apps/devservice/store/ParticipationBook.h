#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// The users' participations in campaigns, in one SQLite file. Thread-safe. Database errors throw
/// SQLite::Exception.
class ParticipationBook {
 public:
  struct Key {
    std::string appKey;
    std::string userId;
    std::string campaignId;
  };
  struct Entry {
    std::string action;
    /// The state that the action led to.
    std::string state;
    /// The date as "yyyy-MM-dd".
    std::string day;
  };

  explicit ParticipationBook(const std::filesystem::path& file);

  void add(const Key& key, const Entry& entry);
  std::optional<Entry> last(const Key& key) const;
  /// The days on which this action was carried out, in ascending order.
  std::vector<std::string> days(const Key& key, const std::string& action) const;

 private:
  mutable std::mutex mutex_;
  mutable SQLite::Database database_;
};

}  // namespace orrelo::devservice
