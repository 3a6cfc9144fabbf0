#include "AttendanceBook.h"

namespace orrelo::devservice {

AttendanceBook::AttendanceBook(const std::filesystem::path& file)
    : database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 5'000) {
  database.exec("PRAGMA journal_mode = WAL");
  database.exec(
      "CREATE TABLE IF NOT EXISTS attendances (appKey TEXT, userId TEXT, campaignId TEXT, day TEXT, "
      "PRIMARY KEY (appKey, userId, campaignId, day)) WITHOUT ROWID");
}

bool AttendanceBook::checkIn(const Key& key, const std::string& day) {
  const std::lock_guard lock(mutex);
  SQLite::Statement insert(database, "INSERT OR IGNORE INTO attendances VALUES (?, ?, ?, ?)");
  insert.bind(1, key.appKey);
  insert.bind(2, key.userId);
  insert.bind(3, key.campaignId);
  insert.bind(4, day);
  return insert.exec() > 0;
}

std::vector<std::string> AttendanceBook::days(const Key& key) const {
  const std::lock_guard lock(mutex);
  SQLite::Statement select(database,
                           "SELECT day FROM attendances WHERE appKey = ? AND userId = ? AND campaignId = ? "
                           "ORDER BY day");
  select.bind(1, key.appKey);
  select.bind(2, key.userId);
  select.bind(3, key.campaignId);
  std::vector<std::string> days;
  while (select.executeStep()) days.push_back(select.getColumn(0).getString());
  return days;
}

}  // namespace orrelo::devservice
