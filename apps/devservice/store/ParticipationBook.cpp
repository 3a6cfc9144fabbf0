#include "store/ParticipationBook.h"

namespace orrelo::devservice {

namespace {

constexpr auto whereKey = " WHERE appKey = ? AND userId = ? AND campaignId = ?";

void bind(SQLite::Statement& statement, const ParticipationBook::Key& key) {
  statement.bind(1, key.appKey);
  statement.bind(2, key.userId);
  statement.bind(3, key.campaignId);
}

}  // namespace

ParticipationBook::ParticipationBook(UserDatabase& users) : users_(users) {
  users_.use([](SQLite::Database& database) {
    database.exec(
        "CREATE TABLE IF NOT EXISTS participations (number INTEGER PRIMARY KEY AUTOINCREMENT, appKey TEXT, "
        "userId TEXT, campaignId TEXT, action TEXT, state TEXT, day TEXT)");
    database.exec("CREATE INDEX IF NOT EXISTS byKey ON participations (appKey, userId, campaignId)");
  });
}

void ParticipationBook::add(const UserDatabase::Change&, const Key& key, const Entry& entry) {
  users_.use([&](SQLite::Database& database) {
    SQLite::Statement insert(database,
                             "INSERT INTO participations (appKey, userId, campaignId, action, state, day) "
                             "VALUES (?, ?, ?, ?, ?, ?)");
    bind(insert, key);
    insert.bind(4, entry.action);
    insert.bind(5, entry.state);
    insert.bind(6, entry.day);
    insert.exec();
  });
}

std::optional<ParticipationBook::Entry> ParticipationBook::last(const Key& key) const {
  return users_.use([&](SQLite::Database& database) -> std::optional<Entry> {
    SQLite::Statement select(database, std::string("SELECT action, state, day FROM participations") +
                                           whereKey + " ORDER BY number DESC LIMIT 1");
    bind(select, key);
    if (!select.executeStep()) return std::nullopt;
    return Entry{select.getColumn(0).getString(), select.getColumn(1).getString(),
                 select.getColumn(2).getString()};
  });
}

std::vector<std::string> ParticipationBook::days(const Key& key, const std::string& action) const {
  return users_.use([&](SQLite::Database& database) {
    SQLite::Statement select(database, std::string("SELECT DISTINCT day FROM participations") + whereKey +
                                           " AND action = ? ORDER BY day");
    bind(select, key);
    select.bind(4, action);
    std::vector<std::string> days;
    while (select.executeStep()) days.push_back(select.getColumn(0).getString());
    return days;
  });
}

}  // namespace orrelo::devservice
