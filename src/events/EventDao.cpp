#include "events/EventDao.h"

#include "base/explain.h"
#include "base/preconditionFailure.h"
#include "events/DroppedEvent.h"
#include "reactive/Observable.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace orrelo {
namespace {

using reactive::AnyObserver;
using reactive::Observable;
using reactive::Unit;

// A stream that runs one operation of the database and emits its result.
template <class T, class Start>
Observable<T> operation(Start start) {
  return reactive::create<T>([start](const AnyObserver<T>& observer) {
    start([observer](const std::variant<T, Error>& result) {
      if (const auto* const failure = std::get_if<Error>(&result)) return observer.onError(*failure);
      observer.onNext(std::get<T>(result));
      observer.onCompleted();
    });
    return reactive::Disposables::create();
  });
}

// Deletes several rows. Any failure but a refusal ends the stream with the same error; the cause is only
// logged.
template <class Start>
Observable<Unit> batchDelete(Start start) {
  return operation<Unit>([start](auto completion) {
    start([completion](const std::variant<std::size_t, Error>& result) {
      const auto* const failure = std::get_if<Error>(&result);
      if (failure == nullptr) return completion(Unit{});
      if (isStoreRefusal(*failure)) return completion(*failure);
      explain(ExplanationLevel::warning,
              [&] { return "The event store deleted nothing: " + failure->description(); });
      completion(makeError(CoreDataError::invalidArgument, "batch delete result does not have objectIds"));
    });
  });
}

}  // namespace

Error makeError(CoreDataError, std::string message) {
  return Error("CoreDataError", "invalidArgument", std::move(message));
}

Observable<EventBatch> EventDao::fetchOldest(std::size_t limit, reactive::SchedulerPtr scheduler) const {
  using Rows = std::shared_ptr<std::vector<EventRow>>;
  const auto rows = operation<Rows>([database = database_, limit](auto completion) {
    database->fetchOldest(limit, [completion](std::variant<std::vector<EventRow>, Error> result) {
      if (const auto* const failure = std::get_if<Error>(&result)) return completion(*failure);
      completion(std::make_shared<std::vector<EventRow>>(std::get<0>(std::move(result))));
    });
  });
  const auto toEvents = [mapper = mapper_, database = database_](const Rows& found) -> EventBatch {
    try {
      auto events = mapper.toEvents(*found);
      *found = {};  // the stream keeps its elements longer than their memory is needed
      return std::make_shared<const std::vector<Event>>(std::move(events));
    } catch (const Error& error) {
      preconditionFailure(error.description() + " in " + database->location());
    }
  };
  return rows.concatMap([scheduler = std::move(scheduler), toEvents](const Rows& found) {
    // An idle tick finds nothing and need not wake another thread.
    if (found->empty()) return reactive::just(EventBatch(std::make_shared<const std::vector<Event>>()));
    return reactive::just(found).observeOn(scheduler).map(toEvents);
  });
}

Observable<std::shared_ptr<const void>> EventDao::acquireSending() const {
  return operation<std::shared_ptr<const void>>(
      [database = database_](auto completion) { database->acquireSending(std::move(completion)); });
}

Observable<Unit> EventDao::remove(const Event& event) const {
  const auto count = operation<std::size_t>([database = database_, id = event.id.text()](auto completion) {
    database->deleteRows({id}, std::move(completion));
  });
  return count.map([](std::size_t removed) {
    if (removed == 0) {
      throw makeError(CoreDataError::invalidArgument, "batch delete result does not have objectId");
    }
    return Unit{};
  });
}

Observable<Unit> EventDao::remove(const std::vector<Event>& events) const {
  std::vector<std::string> ids;
  ids.reserve(events.size());
  std::transform(events.begin(), events.end(), std::back_inserter(ids),
                 [](const Event& event) { return event.id.text(); });
  return batchDelete(
      [database = database_, ids](auto completion) { database->deleteRows(ids, std::move(completion)); });
}

Observable<Unit> EventDao::removeUpTo(Date date) const {
  return batchDelete([database = database_, time = mapper_.toStoredTime(date)](auto completion) {
    database->deleteRowsUpTo(time, [database, completion](const std::variant<std::size_t, Error>& result) {
      const auto* const count = std::get_if<std::size_t>(&result);
      if (count != nullptr && *count > 0) {
        countDroppedEvents(DropReason::tooOld, *count);
        explain(ExplanationLevel::warning, [&] {
          return std::to_string(*count) + " events are dropped from " + database->location() +
                 ": they could not be sent within a day.";
        });
      }
      completion(result);
    });
  });
}

}  // namespace orrelo
