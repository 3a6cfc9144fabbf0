#pragma once

#include "store/Records.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::devservice {

/// The longest push token and user id, in bytes.
constexpr std::size_t longestToken = 4'096;
/// The most tokens that are kept for a user: those that were saved last.
constexpr int mostTokens = 20;

/// The users' push tokens, in a database whose owner guards it. Database errors throw SQLite::Exception.
class TokenBook {
 public:
  explicit TokenBook(SQLite::Database& database);

  /// Counts a further save of a token that the user already has.
  void save(const std::string& appKey, const std::string& userId, const std::string& token, TimePoint now);
  /// The last saved first.
  std::vector<SavedToken> all() const;
  /// The user's tokens that were saved last, the last one first, and the number of all that the user has.
  std::pair<std::vector<SavedToken>, std::int64_t> latestOf(const std::string& appKey,
                                                            const std::string& userId, int limit) const;
  std::int64_t count() const;

 private:
  SQLite::Database& database_;
};

}  // namespace orrelo::devservice
