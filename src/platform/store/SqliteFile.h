#pragma once

#include "base/Error.h"

#include <orrelo/Date.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace orrelo {

/// What SQLite answered in place of a result.
class SqliteFailure : public std::runtime_error {
 public:
  SqliteFailure(int code, int systemError, const std::string& message)
      : std::runtime_error(message), code_(code & 0xFF), systemError_(systemError) {}

  /// For the exception being handled; call it in a catch block only.
  static SqliteFailure fromCurrentException();

  /// The primary result code.
  int code() const { return code_; }
  bool isBusy() const;
  /// The file itself is at fault: damaged, no database, none of our tables, or no file at all. A fresh one
  /// helps.
  bool isUnusableFile() const;
  /// The machine refuses for now: busy, full, read-only, or without permission.
  bool isRefusal() const;
  /// In the domain "SQLite".
  Error error() const;

 private:
  int code_;
  int systemError_;
};

/// One connection to a database file, for one thread at a time. Whatever fails throws a SqliteFailure.
class SqliteFile {
 public:
  enum class Missing { create, fail };

  SqliteFile(const std::filesystem::path& path, Missing missing);

  void execute(const char* sql);
  SQLite::Statement prepare(const char* sql);
  /// Whether there is a row; the statement is reset when there is none.
  bool step(SQLite::Statement& statement);

  void setBusyTimeout(std::chrono::milliseconds timeout);
  /// Write-ahead log, synced at checkpoints. Sets the busy timeout too.
  void prepareForWriting(std::chrono::milliseconds busyTimeout);
  std::size_t changes() const;
  bool isInTransaction() const;
  bool hasTable(const std::string& name);
  /// Whether the file's name no longer leads to this file.
  bool hasMoved() const;
  /// Closing then writes nothing into the file.
  void leaveAsItIs();

 private:
  SQLite::Database database_;
};

/// Renames an unusable database and its companions to "<name>.corrupt-<date>", with one ERROR line. False
/// where the folder does not let us.
bool setAside(const std::filesystem::path& path, Date now, const SqliteFailure& reason);

}  // namespace orrelo
