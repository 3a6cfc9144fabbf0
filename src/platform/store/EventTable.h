#pragma once

#include "platform/EventDatabase.h"
#include "platform/store/SqliteFile.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace orrelo {

/// The rows of one open event store, for one thread. Whatever fails throws a SqliteFailure or the wrapper's
/// own exception; the transaction is then the caller's to roll back.
class EventTable {
 public:
  EventTable(const std::filesystem::path& path, EventTimeStorage timeStorage,
             std::chrono::milliseconds busyTimeout);

  void setBusyTimeout(std::chrono::milliseconds timeout) { file_.setBusyTimeout(timeout); }
  void begin(bool writes);
  void commit() { file_.step(commit_); }
  /// False where the connection can no longer be relied on.
  bool rollback();
  bool hasMoved() const { return file_.hasMoved(); }
  void leaveAsItIs() { file_.leaveAsItIs(); }

  void insert(const EventRow& row);
  std::vector<EventRow> fetchOldest(std::size_t limit);
  std::size_t deleteRow(const std::string& eventId);
  std::size_t deleteRowsUpTo(const StoredTime& time);

 private:
  StoredTime readTime(int column) const;

  EventTimeStorage timeStorage_;
  SqliteFile file_;
  SQLite::Statement beginReading_;
  SQLite::Statement beginWriting_;
  SQLite::Statement commit_;
  SQLite::Statement insert_;
  SQLite::Statement fetch_;
  SQLite::Statement deleteRow_;
  SQLite::Statement deleteUpTo_;
};

}  // namespace orrelo
