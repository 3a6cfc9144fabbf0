#pragma once

#include "events/EventMapper.h"
#include "platform/EventDatabase.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <memory>
#include <utility>
#include <vector>

namespace orrelo {

enum class CoreDataError { invalidArgument };
Error makeError(CoreDataError error, std::string message);

/// A store of events. Each stream is cold, yields one element after the store has committed, and
/// completes; unless told otherwise the element comes on the stores' own thread. Disposing of a stream does
/// not take back what has begun.
class EventDao {
 public:
  EventDao(std::shared_ptr<EventDatabase> database, EventTimeStorage timeStorage)
      : database_(std::move(database)), mapper_(timeStorage) {}

  /// The one operation that is a callback: it comes by the hundred thousand, and a stream for each would cost
  /// more than the rows. `completion` runs on the stores' thread, after the commit.
  void insert(const Event& event, EventDatabase::Completion<std::monostate> completion) const {
    database_->insert(mapper_.toRow(event), std::move(completion));
  }
  /// By time, the oldest first; the rows are read as events on `scheduler`, where the element comes too. A
  /// row that is no event stops the process: the store is the kit's own.
  reactive::Observable<std::vector<Event>> fetchOldest(std::size_t limit,
                                                       reactive::SchedulerPtr scheduler) const;
  /// CoreDataError invalidArgument where no row has the event's id.
  reactive::Observable<reactive::Unit> remove(const Event& event) const;
  /// Ids that no row has are passed over. CoreDataError invalidArgument where the store deletes nothing, as
  /// for `removeUpTo`.
  reactive::Observable<reactive::Unit> remove(const std::vector<Event>& events) const;
  /// What happened at `date` or earlier.
  reactive::Observable<reactive::Unit> removeUpTo(Date date) const;

  /// See EventDatabase::acquireSending.
  std::shared_ptr<const void> acquireSending() const { return database_->acquireSending(); }

 private:
  std::shared_ptr<EventDatabase> database_;
  EventMapper mapper_;
};

}  // namespace orrelo
