#include "platform/store/SqliteFile.h"

#include "base/DateFormat.h"
#include "base/explain.h"

#include <orrelo/platform/EventDatabase.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sqlite3.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace orrelo {
namespace {

constexpr std::string_view domain = "SQLite";

struct Case {
  int code;
  const char* name;
  /// The operation may succeed later, on the same file.
  bool isRefusal;
};

// The first one is for a file that cannot be opened because of the system.
constexpr std::array<Case, 14> cases{{{SQLITE_CANTOPEN, "unavailable", true},
                                      {SQLITE_CANTOPEN, "cantOpen", false},
                                      {SQLITE_BUSY, "busy", true},
                                      {SQLITE_LOCKED, "locked", true},
                                      {SQLITE_PROTOCOL, "locked", true},
                                      {SQLITE_FULL, "full", true},
                                      {SQLITE_READONLY, "readOnly", true},
                                      {SQLITE_PERM, "forbidden", true},
                                      {SQLITE_IOERR, "ioError", true},
                                      {SQLITE_NOMEM, "noMemory", true},
                                      {SQLITE_CORRUPT, "corrupt", false},
                                      {SQLITE_NOTADB, "corrupt", false},
                                      {SQLITE_TOOBIG, "tooBig", false},
                                      {SQLITE_INTERNAL, "unknown", false}}};

/// True if opening failed because of the system and the file itself may be intact.
bool isEnvironment(int systemError) {
  switch (systemError) {
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOSPC:
    case EDQUOT:
    case EMFILE:
    case ENFILE:
    case ENOMEM:
    case ENOENT:
      return true;  // the folder is missing and could not be made
    default:
      return false;
  }
}

SqliteFailure failureOf(sqlite3* handle, int code) {
  return {code, sqlite3_system_errno(handle), sqlite3_errmsg(handle)};
}

/// The SQLite wrapper discards the system's error number, so this opens the file again without the wrapper.
SqliteFailure openingFailure(const std::filesystem::path& path, int flags, const SQLite::Exception& first) {
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  // The second attempt succeeded, so the file itself is intact.
  const int systemError = code == SQLITE_OK ? EACCES : sqlite3_system_errno(handle);
  sqlite3_close(handle);
  return {first.getErrorCode(), systemError, first.what()};
}

/// Creates a missing file and restricts it to its owner: SQLite gives the files beside it the same mode.
/// Throws if the path names something that SQLite cannot use, such as a pipe.
void prepareFile(const std::filesystem::path& path, SqliteFile::Missing missing) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    if (!S_ISREG(status.st_mode)) throw SqliteFailure(SQLITE_CANTOPEN, 0, "not a regular file");
    if ((status.st_mode & 077) == 0 || status.st_uid != geteuid()) return;
    for (const char* companion : {"-wal", "-shm", ""}) ::chmod((path.string() + companion).c_str(), 0600);
    return;
  }
  if (errno != ENOENT) return;  // a failure of the system, which says nothing about the file
  if (::lstat(path.c_str(), &status) == 0) throw SqliteFailure(SQLITE_CANTOPEN, 0, "a link to nothing");
  if (errno != ENOENT || missing == SqliteFile::Missing::fail) return;
  const int created = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (created >= 0) ::close(created);
}

SQLite::Database openDatabase(const std::filesystem::path& path, SqliteFile::Missing missing) {
  prepareFile(path, missing);
  int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  if (missing == SqliteFile::Missing::create) flags |= SQLITE_OPEN_CREATE;
  try {
    return {path.string(), flags};
  } catch (const SQLite::Exception& exception) {
    throw openingFailure(path, flags, exception);
  }
}

}  // namespace

SqliteFailure SqliteFailure::fromCurrentException() {
  try {
    throw;
  } catch (const SqliteFailure& failure) {
    return failure;
  } catch (const SQLite::Exception& exception) {
    return {exception.getErrorCode(), 0, exception.what()};
  } catch (const std::bad_alloc& exception) {
    return {SQLITE_NOMEM, 0, exception.what()};
  } catch (const std::exception& exception) {
    return {SQLITE_INTERNAL, 0, exception.what()};
  }
}

bool SqliteFailure::isBusy() const {
  return code_ == SQLITE_BUSY || code_ == SQLITE_LOCKED;
}

bool SqliteFailure::isUnusableFile() const {
  switch (code_) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return true;
    // The statements are valid and the tables have no constraints, so the file has a foreign schema.
    case SQLITE_ERROR:
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
      return true;
    case SQLITE_CANTOPEN:
      return !isEnvironment(systemError_);
    default:
      return false;
  }
}

bool SqliteFailure::isRefusal() const {
  return isStoreRefusal(error());
}

Error SqliteFailure::error() const {
  const bool isUnavailable = code_ == SQLITE_CANTOPEN && isEnvironment(systemError_);
  const auto found = std::find_if(isUnavailable ? cases.begin() : cases.begin() + 1, cases.end() - 1,
                                  [this](const Case& known) { return known.code == code_; });
  return {std::string(domain), found->name, what()};
}

Error makeStoreRefusal(std::string message) {
  return {"EventDatabase", "refused", std::move(message)};
}

bool isStoreRefusal(const Error& error) {
  if (error == makeStoreRefusal({})) return true;
  return error.domain() == domain && std::any_of(cases.begin(), cases.end(), [&](const Case& known) {
           return known.isRefusal && error.caseName() == known.name;
         });
}

SqliteFile::SqliteFile(const std::filesystem::path& path, Missing missing)
    : database_(openDatabase(path, missing)) {}

void SqliteFile::execute(const char* sql) {
  if (const int code = database_.tryExec(sql); code != SQLITE_OK)
    throw failureOf(database_.getHandle(), code);
}

SQLite::Statement SqliteFile::prepare(const char* sql) {
  try {
    return {database_, sql};
  } catch (const SQLite::Exception& exception) {
    throw failureOf(database_.getHandle(), exception.getErrorCode());
  }
}

bool SqliteFile::step(SQLite::Statement& statement) {
  const int code = statement.tryExecuteStep();
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) {
    statement.tryReset();
    return false;
  }
  const auto failure = failureOf(database_.getHandle(), code);
  statement.tryReset();
  throw failure;
}

void SqliteFile::setBusyTimeout(std::chrono::milliseconds timeout) {
  sqlite3_busy_timeout(database_.getHandle(), static_cast<int>(timeout.count()));
}

void SqliteFile::prepareForWriting(std::chrono::milliseconds busyTimeout) {
  // If two processes create the file at the same time, SQLite reports "busy" to one of them immediately,
  // regardless of the timeout.
  constexpr std::chrono::milliseconds pause{5};
  setBusyTimeout(pause);
  for (auto left = busyTimeout;; left -= pause) {
    const int code = database_.tryExec("PRAGMA journal_mode = WAL");
    if (code == SQLITE_OK) break;
    const auto failure = failureOf(database_.getHandle(), code);
    if (!failure.isBusy() || left <= pause) throw failure;
    sqlite3_sleep(static_cast<int>(pause.count()));
  }
  setBusyTimeout(busyTimeout);
  execute("PRAGMA synchronous = NORMAL");
}

std::size_t SqliteFile::changes() const {
  return static_cast<std::size_t>(sqlite3_changes(database_.getHandle()));
}

bool SqliteFile::isInTransaction() const {
  return sqlite3_get_autocommit(database_.getHandle()) == 0;
}

bool SqliteFile::hasTable(const std::string& name) {
  auto find = prepare("SELECT 1 FROM sqlite_master WHERE name = ?");
  find.bind(1, name);
  return step(find);
}

bool SqliteFile::hasMoved() const {
  int moved = 0;
  const int code = sqlite3_file_control(database_.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return code == SQLITE_OK && moved != 0;
}

void SqliteFile::skipCheckpointOnClose() {
  sqlite3_db_config(database_.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

bool quarantine(const std::filesystem::path& path, Date now, const SqliteFailure& reason) {
  std::error_code failure;
  const auto stem = path.string() + ".corrupt-" + formatDate(now, "yyyyMMdd'-'HHmmss");
  auto target = stem;
  for (int n = 1; std::filesystem::exists(std::filesystem::symlink_status(target, failure)); ++n) {
    target = stem + "-" + std::to_string(n);
  }
  std::filesystem::rename(path, target, failure);
  // If the file was not renamed, its -wal and -shm files must stay with it.
  if (failure && failure != std::errc::no_such_file_or_directory) return false;
  for (const char* companion : {"-wal", "-shm"}) {
    std::filesystem::rename(path.string() + companion, target + companion, failure);
  }
  explain(ExplanationLevel::error, [&] {
    return "The store " + path.string() + " is unusable (" + reason.error().description() + ") and lies in " +
           target + ". A new one takes its place.";
  });
  return true;
}

}  // namespace orrelo
