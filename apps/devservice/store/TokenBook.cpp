#include "store/TokenBook.h"

#include <chrono>

namespace orrelo::devservice {

namespace {

constexpr auto tokenSchema = R"sql(
  CREATE TABLE IF NOT EXISTS tokens(
    app_key TEXT NOT NULL,
    user_id TEXT NOT NULL,
    token TEXT NOT NULL,
    saves INTEGER NOT NULL,
    first_saved INTEGER NOT NULL,
    last_saved INTEGER NOT NULL,
    PRIMARY KEY(app_key, user_id, token)) WITHOUT ROWID;
)sql";

constexpr auto upsertSql = R"sql(
  INSERT INTO tokens(app_key, user_id, token, saves, first_saved, last_saved)
    SELECT ?1, ?2, ?3, 1, time, time FROM (
      -- Tokens that are saved within one millisecond keep their order.
      SELECT max(?4, coalesce(max(last_saved) + 1, 0)) AS time FROM tokens
        WHERE app_key = ?1 AND user_id = ?2 AND token <> ?3)
    WHERE true
  ON CONFLICT DO UPDATE SET saves = saves + 1, last_saved = excluded.last_saved)sql";

/// Never removes the token that was just saved, also if the clock stands still.
constexpr auto trimSql = R"sql(
  DELETE FROM tokens WHERE app_key = ?1 AND user_id = ?2 AND token IN (
    SELECT token FROM tokens WHERE app_key = ?1 AND user_id = ?2
      ORDER BY token = ?3 DESC, last_saved DESC, token LIMIT -1 OFFSET ?4))sql";

constexpr auto selectSql = "SELECT app_key, user_id, token, saves, first_saved, last_saved FROM tokens ";

std::vector<SavedToken> read(SQLite::Statement& query) {
  const auto time = [&](int column) {
    return TimePoint(std::chrono::milliseconds(query.getColumn(column).getInt64()));
  };
  std::vector<SavedToken> result;
  while (query.executeStep()) {
    result.push_back({query.getColumn(0).getString(), query.getColumn(1).getString(),
                      query.getColumn(2).getString(), query.getColumn(3).getInt64(), time(4), time(5)});
  }
  return result;
}

}  // namespace

TokenBook::TokenBook(SQLite::Database& database) : database_(database) {
  database_.exec(tokenSchema);
}

void TokenBook::save(const std::string& appKey, const std::string& userId, const std::string& token,
                     TimePoint now) {
  SQLite::Statement upsert(database_, upsertSql);
  SQLite::Statement trim(database_, trimSql);
  for (auto* const statement : {&upsert, &trim}) {
    statement->bind(1, appKey);
    statement->bind(2, userId);
    statement->bind(3, token);
  }
  upsert.bind(4, static_cast<std::int64_t>(now.time_since_epoch().count()));
  trim.bind(4, mostTokens);
  upsert.exec();
  trim.exec();
}

std::vector<SavedToken> TokenBook::all() const {
  SQLite::Statement query(database_, std::string(selectSql) + "ORDER BY last_saved DESC, token");
  return read(query);
}

std::pair<std::vector<SavedToken>, std::int64_t> TokenBook::latestOf(const std::string& appKey,
                                                                     const std::string& userId,
                                                                     int limit) const {
  constexpr auto ofUser = "WHERE app_key = ?1 AND user_id = ?2 ";
  SQLite::Statement query(database_,
                          std::string(selectSql) + ofUser + "ORDER BY last_saved DESC, token LIMIT ?3");
  SQLite::Statement count(database_, std::string("SELECT count(*) FROM tokens ") + ofUser);
  for (auto* const statement : {&query, &count}) {
    statement->bind(1, appKey);
    statement->bind(2, userId);
  }
  query.bind(3, limit);
  count.executeStep();
  return {read(query), count.getColumn(0).getInt64()};
}

std::int64_t TokenBook::count() const {
  return database_.execAndGet("SELECT count(*) FROM tokens").getInt64();
}

}  // namespace orrelo::devservice
