#pragma once

#include "base/Error.h"

#include <orrelo/Date.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace orrelo {

/// A failure reported by SQLite.
class SqliteFailure : public std::runtime_error {
 public:
  SqliteFailure(int code, int systemError, const std::string& message)
      : std::runtime_error(message), code_(code & 0xFF), systemError_(systemError) {}

  /// Converts the exception being handled; call it only in a catch block.
  static SqliteFailure fromCurrentException();

  /// The primary result code.
  int code() const { return code_; }
  bool isBusy() const;
  /// True if the file must be replaced: it is damaged, is not a database, has a foreign schema, or is not a
  /// regular file.
  bool isUnusableFile() const;
  /// True if the same operation may succeed later; see `isStoreRefusal`.
  bool isRefusal() const;
  /// The failure as an Error in the domain "SQLite".
  Error error() const;

 private:
  int code_;
  int systemError_;
};

/// One connection to a database file. Not thread-safe. Failures throw a SqliteFailure.
class SqliteFile {
 public:
  enum class Missing { create, fail };

  SqliteFile(const std::filesystem::path& path, Missing missing);

  void execute(const char* sql);
  SQLite::Statement prepare(const char* sql);
  /// Steps to the next row. False if there is none; the statement is then reset.
  bool step(SQLite::Statement& statement);

  void setBusyTimeout(std::chrono::milliseconds timeout);
  /// Enables the write-ahead log with synchronous = NORMAL, and sets the busy timeout.
  void prepareForWriting(std::chrono::milliseconds busyTimeout);
  std::size_t changes() const;
  bool isInTransaction() const;
  bool hasTable(const std::string& name);
  /// True if the file was renamed, deleted or replaced since it was opened.
  bool hasMoved() const;
  /// Disables the checkpoint at closing, so that closing writes nothing into the file.
  void skipCheckpointOnClose();

 private:
  SQLite::Database database_;
};

/// Renames an unusable database and its -wal and -shm files to "<name>.corrupt-<date>" and logs an error.
/// False if the file could not be renamed.
bool quarantine(const std::filesystem::path& path, Date now, const SqliteFailure& reason);

}  // namespace orrelo
