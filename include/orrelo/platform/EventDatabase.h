#pragma once

#include <orrelo/Date.h>
#include <orrelo/Error.h>
#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orrelo {

/// A stored time: a text that sorts chronologically, a date, or absent.
using StoredTime = std::variant<std::monostate, std::string, Date>;

/// A row as it is stored. Every column is optional; the reader validates the row.
struct ORRELO_EXPORT EventRow {
  std::optional<std::string> eventId;
  std::optional<std::string> userId;
  std::optional<std::string> eventName;
  StoredTime eventTime;
  std::optional<std::string> eventValues;

  friend bool operator==(const EventRow&, const EventRow&) = default;
};

/// The type in which a store keeps `eventTime`.
enum class EventTimeStorage { text, date };

/// One persistent table of events.
///
/// Every operation returns at once and runs on the stores' own thread, in the order of the calls. Operations
/// that wait in the queue together are committed in one transaction; each completion runs on that thread
/// after the commit. If the file rejects an operation for now (busy, full, read-only), only that operation
/// fails, with an error that `isStoreRefusal` recognises, and the next one tries again. A corrupt file is
/// renamed with a date suffix and replaced by an empty one, on which the operation is repeated; if the
/// replacement cannot be opened, the process is aborted. Operations that have not started when the process
/// begins to exit are not run. Completions must be short, must not throw, and must not use file descriptors
/// of other threads: the stores' own thread may have a table of its own. Any thread.
class ORRELO_EXPORT EventDatabase {
 public:
  template <class T>
  using Completion = std::function<void(std::variant<T, Error>)>;

  virtual ~EventDatabase() = default;

  virtual void insert(EventRow row, Completion<std::monostate> completion) = 0;
  /// Inserts the row unless there is one with the same `eventTime` and `eventId`.
  virtual void insertOnce(EventRow row, Completion<std::monostate> completion) = 0;
  /// Fetches at most `limit` rows in ascending order of `eventTime`.
  virtual void fetchOldest(std::size_t limit, Completion<std::vector<EventRow>> completion) = 0;
  /// Deletes, for each id, the oldest row with that id. Completes with the number of deleted rows.
  virtual void deleteRows(std::vector<std::string> eventIds, Completion<std::size_t> completion) = 0;
  /// Deletes the rows whose `eventTime` is at or before `time`, which must have the store's type of time.
  /// Completes with the number of deleted rows.
  virtual void deleteRowsUpTo(StoredTime time, Completion<std::size_t> completion) = 0;

  /// The path of the store's file, for messages.
  virtual std::string location() const = 0;

  /// What the store knows about itself.
  struct Status {
    /// Counted when the file is opened, and then by the operations of this object alone; nullopt if unknown.
    std::optional<std::size_t> rowCount;
    /// Why an operation was rejected, until one that changes rows has succeeded.
    std::optional<Error> failure;
  };
  /// Returns at once, without an operation, for Orrelo::diagnostics. Any thread.
  virtual Status status() const { return {}; }

  /// Acquires the exclusive right to send the stored events, which the object that it completes with holds
  /// until it is destroyed. Null while another owner holds it, in this process or in another one that shares
  /// the file. A forked child does not hold it.
  virtual void acquireSending(Completion<std::shared_ptr<const void>> completion) = 0;
};

/// True if the store has rejected an operation only for now: the file is busy, full, read-only or forbidden,
/// the device reports an error, or memory has run out. The same operation may succeed later.
ORRELO_EXPORT bool isStoreRefusal(const Error& error);
/// Such an error, for a store of the host's own. The message says why.
ORRELO_EXPORT Error makeStoreRefusal(std::string message);

/// Opens event stores in the data directory. Requests for the same name return the same store.
class ORRELO_EXPORT EventDatabaseFactory {
 public:
  virtual ~EventDatabaseFactory() = default;

  /// Returns at once; the file is opened by the first operation.
  virtual std::shared_ptr<EventDatabase> open(std::string_view name, EventTimeStorage timeStorage) = 0;
};

}  // namespace orrelo
