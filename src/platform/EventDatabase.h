#pragma once

#include "base/Error.h"

#include <orrelo/Date.h>

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

/// A stored time: text that sorts by time, or a date, or absent.
using StoredTime = std::variant<std::monostate, std::string, Date>;

/// A row as it is stored. Every column can be absent: what a row must have is its reader's to judge.
struct EventRow {
  std::optional<std::string> eventId;
  std::optional<std::string> userId;
  std::optional<std::string> eventName;
  StoredTime eventTime;
  std::optional<std::string> eventValues;

  friend bool operator==(const EventRow&, const EventRow&) = default;
};

/// How a store keeps `eventTime`.
enum class EventTimeStorage { text, date };

/// One persistent table of events.
///
/// Every operation returns at once and is carried out in the order of the calls, on the stores' own thread.
/// What waits there together is committed together, and a completion runs after its commit, on that thread.
/// An operation that the file refuses (busy, full, read-only) fails alone, and the next one tries anew. A
/// file that is corrupt is set aside under a dated name and a fresh one takes its place, for the same
/// operation; if that cannot be opened the process stops. Completions must be short and must not throw. Any
/// thread.
class EventDatabase {
 public:
  template <class T>
  using Completion = std::function<void(std::variant<T, Error>)>;

  virtual ~EventDatabase() = default;

  virtual void insert(EventRow row, Completion<std::monostate> completion) = 0;
  /// By `eventTime`, the oldest first; at most `limit` rows.
  virtual void fetchOldest(std::size_t limit, Completion<std::vector<EventRow>> completion) = 0;
  /// For each id the first row that has it. Gives the number of rows deleted.
  virtual void deleteRows(std::vector<std::string> eventIds, Completion<std::size_t> completion) = 0;
  /// Rows whose `eventTime` is at or before `time`, which is of the kind that the store keeps. Gives their
  /// number.
  virtual void deleteRowsUpTo(StoredTime time, Completion<std::size_t> completion) = 0;

  /// The path of the store's file, for messages.
  virtual std::string location() const = 0;

  /// The right to send what the store holds. It is held as long as the answer lives; null while somebody else
  /// has it, in this process or in another that shares the file.
  virtual std::shared_ptr<const void> acquireSending() = 0;
};

/// Opens event stores in the data directory. Two questions for one name are answered with the same store.
class EventDatabaseFactory {
 public:
  virtual ~EventDatabaseFactory() = default;

  /// Returns at once; the file is opened by the first operation.
  virtual std::shared_ptr<EventDatabase> open(std::string_view name, EventTimeStorage timeStorage) = 0;
};

}  // namespace orrelo
