#pragma once

#include "events/EventMapper.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <orrelo/platform/EventDatabase.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

enum class CoreDataError { invalidArgument };
Error makeError(CoreDataError error, std::string message);

/// Events that are sent together; never null. Streams copy their elements, which would be costly for hundreds
/// of events.
using EventBatch = std::shared_ptr<const std::vector<Event>>;

/// Accesses a store of events. The streams are cold, emit one element after the store has committed, and
/// complete. Unless stated otherwise, they emit on the stores' own thread. Disposing of a stream does not
/// cancel an operation that has started.
class EventDao {
 public:
  EventDao(std::shared_ptr<EventDatabase> database, EventTimeStorage timeStorage)
      : database_(std::move(database)), mapper_(timeStorage) {}

  /// Takes a callback instead of returning a stream: there may be hundreds of thousands of inserts, and a
  /// stream for each would cost more than the row. `completion` runs on the stores' thread, after the commit.
  /// `mayBeStored` looks for an event with the same time and id before inserting it.
  void insert(const Event& event, bool mayBeStored,
              EventDatabase::Completion<std::monostate> completion) const {
    auto row = mapper_.toRow(event);
    mayBeStored ? database_->insertOnce(std::move(row), std::move(completion))
                : database_->insert(std::move(row), std::move(completion));
  }
  /// Fetches the oldest events, sorted by time. The rows are converted on `scheduler`, on which the stream
  /// also emits; an empty list is emitted on the stores' thread. Aborts the process if a row is not a valid
  /// event, since only the kit writes the store.
  reactive::Observable<EventBatch> fetchOldest(std::size_t limit, reactive::SchedulerPtr scheduler) const;
  /// Fails with CoreDataError invalidArgument if no row has the event's id.
  reactive::Observable<reactive::Unit> remove(const Event& event) const;
  /// Ignores ids that no row has. Fails with CoreDataError invalidArgument if the store cannot delete rows,
  /// and with the store's error if that is a refusal, as does `removeUpTo`.
  reactive::Observable<reactive::Unit> remove(const std::vector<Event>& events) const;
  /// Removes the events at or before `date`.
  reactive::Observable<reactive::Unit> removeUpTo(Date date) const;

  /// See EventDatabase::acquireSending.
  reactive::Observable<std::shared_ptr<const void>> acquireSending() const;

  /// See EventDatabase::location.
  std::string location() const { return database_->location(); }
  /// See EventDatabase::status.
  EventDatabase::Status status() const { return database_->status(); }

 private:
  std::shared_ptr<EventDatabase> database_;
  EventMapper mapper_;
};

}  // namespace orrelo
