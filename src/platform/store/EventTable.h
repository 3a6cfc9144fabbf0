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
  void commit();
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

  /// The number of rows: counted when the file is opened, and then by the operations of this object.
  std::size_t rowCount() const { return rowCount_; }

 private:
  void runInsert(SQLite::Statement& statement, const EventRow& row);
  StoredTime readTime(int column) const;
  /// The number of rows that the last statement has deleted.
  std::size_t countDeleted();

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
  std::size_t rowCount_ = 0;
  /// Set during a transaction.
  std::optional<std::size_t> rowCountAtBegin_;
};

}  // namespace orrelo
