#include "events/EventDao.h"

#include "base/Logger.h"
#include "base/preconditionFailure.h"
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
      log(LogLevel::WARNING, [&] { return "The event store deleted nothing: " + failure->description(); });
      completion(makeError(CoreDataError::invalidArgument, "batch delete result does not have objectIds"));
    });
  });
}

}  // namespace

Error makeError(CoreDataError, std::string message) {
  return Error("CoreDataError", "invalidArgument", std::move(message));
}

Observable<std::vector<Event>> EventDao::fetchOldest(std::size_t limit,
                                                     reactive::SchedulerPtr scheduler) const {
  const auto rows = operation<std::vector<EventRow>>([database = database_, limit](auto completion) {
    database->fetchOldest(limit, std::move(completion));
  });
  const auto toEvents = [mapper = mapper_, database = database_](const std::vector<EventRow>& found) {
    try {
      return mapper.toEvents(found);
    } catch (const Error& error) {
      preconditionFailure(error.description() + " in " + database->location());
    }
  };
  return rows.concatMap([scheduler = std::move(scheduler), toEvents](const std::vector<EventRow>& found) {
    // An idle tick finds nothing and need not wake another thread.
    if (found.empty()) return reactive::just(std::vector<Event>());
    return reactive::just(std::make_shared<const std::vector<EventRow>>(found))
        .observeOn(scheduler)
        .map([toEvents](const auto& batch) { return toEvents(*batch); });
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
    database->deleteRowsUpTo(time, std::move(completion));
  });
}

}  // namespace orrelo
