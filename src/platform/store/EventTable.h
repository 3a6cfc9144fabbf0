#pragma once

#include "platform/store/SqliteFile.h"

#include <orrelo/platform/EventDatabase.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// The rows of one open event store. Not thread-safe. Failures throw a SqliteFailure or a SQLite::Exception;
/// the caller must then roll back the transaction.
class EventTable {
 public:
  EventTable(const std::filesystem::path& path, EventTimeStorage timeStorage,
             std::chrono::milliseconds busyTimeout);

  void setBusyTimeout(std::chrono::milliseconds timeout) { file_.setBusyTimeout(timeout); }
  void begin(bool writes);
  void commit() { file_.step(commit_); }
  /// False if the rollback failed and the connection must be closed.
  bool rollback();
  bool hasMoved() const { return file_.hasMoved(); }
  void skipCheckpointOnClose() { file_.skipCheckpointOnClose(); }

  void insert(const EventRow& row);
  /// Inserts the row unless there is one with the same time and id.
  void insertOnce(const EventRow& row);
  std::vector<EventRow> fetchOldest(std::size_t limit);
  std::size_t deleteRow(const std::string& eventId);
  std::size_t deleteRowsUpTo(const StoredTime& time);

 private:
  void runInsert(SQLite::Statement& statement, const EventRow& row);
  StoredTime readTime(int column) const;

  EventTimeStorage timeStorage_;
  SqliteFile file_;
  SQLite::Statement beginReading_;
  SQLite::Statement beginWriting_;
  SQLite::Statement commit_;
  SQLite::Statement insert_;
  std::optional<SQLite::Statement> insertOnce_;  // prepared by its first use, since few rows need it
  SQLite::Statement fetch_;
  SQLite::Statement deleteRow_;
  SQLite::Statement deleteUpTo_;
};

}  // namespace orrelo
