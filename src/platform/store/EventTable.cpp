#include "platform/store/EventTable.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

namespace orrelo {
namespace {

SqliteFile openTable(const std::filesystem::path& path, std::chrono::milliseconds busyTimeout) {
  SqliteFile file(path, SqliteFile::Missing::create);
  file.prepareForWriting(busyTimeout);
  file.execute(
      "CREATE TABLE IF NOT EXISTS events (eventId TEXT, userId TEXT, eventName TEXT, eventTime, eventValues "
      "TEXT)");
  file.execute("CREATE INDEX IF NOT EXISTS eventsByTime ON events (eventTime)");
  return file;
}

void bindText(SQLite::Statement& statement, int index, const std::optional<std::string>& text) {
  if (text) {
    statement.bindNoCopy(index, *text);
  } else {
    statement.bind(index);
  }
}

void bindTime(SQLite::Statement& statement, int index, const StoredTime& time) {
  if (const auto* text = std::get_if<std::string>(&time)) {
    statement.bindNoCopy(index, *text);
  } else if (const auto* date = std::get_if<Date>(&time)) {
    statement.bind(index, static_cast<std::int64_t>(date->sinceEpoch().count()));
  } else {
    statement.bind(index);
  }
}

std::optional<std::string> readText(const SQLite::Column& column) {
  if (!column.isText()) return std::nullopt;
  return column.getString();
}

}  // namespace

EventTable::EventTable(const std::filesystem::path& path, EventTimeStorage timeStorage,
                       std::chrono::milliseconds busyTimeout)
    : timeStorage_(timeStorage),
      file_(openTable(path, busyTimeout)),
      beginReading_(file_.prepare("BEGIN")),
      beginWriting_(file_.prepare("BEGIN IMMEDIATE")),
      commit_(file_.prepare("COMMIT")),
      insert_(file_.prepare("INSERT INTO events (eventId, userId, eventName, eventTime, eventValues) "
                            "VALUES (?, ?, ?, ?, ?)")),
      fetch_(file_.prepare("SELECT eventId, userId, eventName, eventTime, eventValues FROM events "
                           "ORDER BY eventTime, rowid LIMIT ?")),
      // An index on the id would slow down each insert and is not needed: the rows to delete are among the
      // oldest ones, which the index on the time finds.
      deleteRow_(file_.prepare("DELETE FROM events WHERE rowid = (SELECT rowid FROM events WHERE eventId = ? "
                               "ORDER BY eventTime, rowid LIMIT 1)")),
      deleteUpTo_(file_.prepare("DELETE FROM events WHERE eventTime <= ?")) {
  auto count = file_.prepare("SELECT count(*) FROM events");
  file_.step(count);
  rowCount_ = static_cast<std::size_t>(count.getColumn(0).getInt64());
}

void EventTable::begin(bool writes) {
  file_.step(writes ? beginWriting_ : beginReading_);
  rowCountAtBegin_ = rowCount_;
}

void EventTable::commit() {
  file_.step(commit_);
  rowCountAtBegin_.reset();
}

bool EventTable::rollback() {
  rowCount_ = std::exchange(rowCountAtBegin_, std::nullopt).value_or(rowCount_);
  if (!file_.isInTransaction()) return true;
  try {
    file_.execute("ROLLBACK");
  } catch (const SqliteFailure&) {
    return false;
  }
  return true;
}

void EventTable::insert(const EventRow& row) {
  runInsert(insert_, row);
}

void EventTable::insertOnce(const EventRow& row) {
  if (!insertOnce_) {
    // The index on the time finds the few rows whose ids are compared.
    insertOnce_ = file_.prepare(
        "INSERT INTO events (eventId, userId, eventName, eventTime, eventValues) SELECT ?1, ?2, ?3, ?4, ?5 "
        "WHERE NOT EXISTS (SELECT 1 FROM events WHERE eventTime IS ?4 AND eventId IS ?1)");
  }
  runInsert(*insertOnce_, row);
}

void EventTable::runInsert(SQLite::Statement& statement, const EventRow& row) {
  bindText(statement, 1, row.eventId);
  bindText(statement, 2, row.userId);
  bindText(statement, 3, row.eventName);
  bindTime(statement, 4, row.eventTime);
  bindText(statement, 5, row.eventValues);
  file_.step(statement);
  rowCount_ += file_.changes();
}

std::vector<EventRow> EventTable::fetchOldest(std::size_t limit) {
  constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
  fetch_.bind(1, static_cast<std::int64_t>(std::min<std::uint64_t>(limit, most)));
  std::vector<EventRow> rows;
  while (file_.step(fetch_)) {
    rows.push_back({.eventId = readText(fetch_.getColumn(0)),
                    .userId = readText(fetch_.getColumn(1)),
                    .eventName = readText(fetch_.getColumn(2)),
                    .eventTime = readTime(3),
                    .eventValues = readText(fetch_.getColumn(4))});
  }
  // Other processes insert rows, too.
  if (rows.size() < limit) rowCount_ = rows.size();
  return rows;
}

std::size_t EventTable::deleteRow(const std::string& eventId) {
  deleteRow_.bindNoCopy(1, eventId);
  file_.step(deleteRow_);
  return countDeleted();
}

std::size_t EventTable::deleteRowsUpTo(const StoredTime& time) {
  bindTime(deleteUpTo_, 1, time);
  file_.step(deleteUpTo_);
  return countDeleted();
}

std::size_t EventTable::countDeleted() {
  const auto count = file_.changes();
  rowCount_ -= std::min(rowCount_, count);
  return count;
}

StoredTime EventTable::readTime(int column) const {
  const auto value = fetch_.getColumn(column);
  if (timeStorage_ == EventTimeStorage::text && value.isText()) return value.getString();
  if (timeStorage_ == EventTimeStorage::date && value.isInteger()) {
    return Date(std::chrono::microseconds(value.getInt64()));
  }
  return {};
}

}  // namespace orrelo
