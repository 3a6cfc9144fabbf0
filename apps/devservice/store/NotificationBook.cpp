#include "store/NotificationBook.h"

namespace orrelo::devservice {

namespace {

SQLite::Statement about(SQLite::Database& database, const WalletOwner& user, const char* sql) {
  SQLite::Statement statement(database, sql);
  statement.bind(1, user.appKey);
  statement.bind(2, user.userId);
  return statement;
}

}  // namespace

NotificationBook::NotificationBook(UserDatabase& users) : users_(users) {
  users_.use([](SQLite::Database& database) {
    database.exec(R"sql(
      CREATE TABLE IF NOT EXISTS notifications(
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        app_key TEXT NOT NULL,
        user_id TEXT NOT NULL,
        payload TEXT NOT NULL);
      CREATE INDEX IF NOT EXISTS notifications_of_user ON notifications(app_key, user_id, id);
    )sql");
  });
}

bool NotificationBook::add(const WalletOwner& user, const std::string& payload) {
  return users_.use([&](SQLite::Database& database) {
    if (waiting(user) >= mostNotifications) return false;
    auto insert =
        about(database, user, "INSERT INTO notifications(app_key, user_id, payload) VALUES(?1, ?2, ?3)");
    insert.bind(3, payload);
    return insert.exec() == 1;
  });
}

std::vector<std::string> NotificationBook::take(const WalletOwner& user) {
  UserDatabase::Change change(users_);
  auto payloads = users_.use([&](SQLite::Database& database) {
    auto select = about(database, user,
                        "SELECT payload FROM notifications WHERE app_key = ?1 AND user_id = ?2 ORDER BY id");
    std::vector<std::string> found;
    while (select.executeStep()) found.push_back(select.getColumn(0).getString());
    about(database, user, "DELETE FROM notifications WHERE app_key = ?1 AND user_id = ?2").exec();
    return found;
  });
  change.commit();
  return payloads;
}

std::int64_t NotificationBook::waiting(const WalletOwner& user) const {
  return users_.use([&](SQLite::Database& database) {
    auto select =
        about(database, user, "SELECT count(*) FROM notifications WHERE app_key = ?1 AND user_id = ?2");
    select.executeStep();
    return select.getColumn(0).getInt64();
  });
}

}  // namespace orrelo::devservice
