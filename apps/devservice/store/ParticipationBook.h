#pragma once

#include "store/UserDatabase.h"

#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// The users' participations in campaigns. Thread-safe. Database errors throw SQLite::Exception.
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

  explicit ParticipationBook(UserDatabase& users);

  void add(const UserDatabase::Change& change, const Key& key, const Entry& entry);
  std::optional<Entry> last(const Key& key) const;
  /// The days on which this action was carried out, in ascending order.
  std::vector<std::string> days(const Key& key, const std::string& action) const;

 private:
  UserDatabase& users_;
};

}  // namespace orrelo::devservice
