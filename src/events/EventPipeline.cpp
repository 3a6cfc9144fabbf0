#include "events/EventPipeline.h"

#include "base/explain.h"
#include "events/RefusalWait.h"
#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

using reactive::Observable;
using reactive::Unit;

EventPipeline::EventPipeline(EventDao dao, Options options)
    : dao_(std::move(dao)), options_(std::move(options)) {
  status_.store = dao_.location();
}

std::shared_ptr<EventPipeline> EventPipeline::create(EventDao dao, Options options) {
  const std::shared_ptr<EventPipeline> pipeline(new EventPipeline(std::move(dao), std::move(options)));
  pipeline->start();
  return pipeline;
}

void EventPipeline::save(const Event& event, bool mayBeStored, SaveCompletion completion) {
  dao_.insert(event, mayBeStored,
              [weak = weak_from_this(), completion = std::move(completion)](const auto& result) {
                const auto* const failure = std::get_if<Error>(&result);
                const auto self = weak.lock();
                if (failure == nullptr && self) self->queueSource_.onNext({});
                if (completion) completion(failure == nullptr ? std::nullopt : std::optional(*failure));
              });
}

void EventPipeline::start() {
  const auto weak = weak_from_this();
  const auto deallocated = makeError(ReferenceError::deallocated);
  queueSource_
      .asObservable()
      // Signals arrive on the stores' thread, which must not be blocked.
      .observeOn(options_.concurrentScheduler)
      .buffer(options_.timeSpan, options_.count, options_.mainScheduler)
      .map([](const std::vector<Unit>&) { return Unit{}; })  // one tick, regardless of the number of signals
      .subscribeOn(options_.concurrentScheduler)
      // An idle tick starts on the main thread, without waking another one: the store's steps return at once.
      .concatMap([weak, deallocated](const Unit&) {
        const auto self = weak.lock();
        return self ? self->acquireSending() : reactive::error<Unit>(deallocated);
      })
      .concatMap([weak, deallocated](const Unit&) {
        const auto self = weak.lock();
        return self ? self->removeStale() : reactive::error<Unit>(deallocated);
      })
      .concatMap([weak, deallocated](const Unit&) {
        const auto self = weak.lock();
        return self ? self->sendOldest() : reactive::error<EventBatch>(deallocated);
      })
      .retry(2)
      .subscribe({.onNext =
                      [weak, onSent = options_.onSent](const EventBatch& events) {
                        if (const auto self = weak.lock()) self->countSent(events->size());
                        onSent(*events);
                      },
                  .onError =
                      [weak, onEnded = options_.onEnded](const Error& error) {
                        if (const auto self = weak.lock()) self->end(error);
                        onEnded(error);
                      }})
      .disposedBy(disposeBag_);
}

void EventPipeline::end(const Error& error) {
  explain(ExplanationLevel::error, [&] {
    return "Sending the events of " + dao_.location() +
           " has ended after a second failure: " + error.description() +
           ". New events are stored; all are sent after the next start of the process or the next "
           "Orrelo::initialize, if they are not a day old by then.";
  });
  {
    const std::lock_guard lock(statusMutex_);
    status_.ended = error.description();
  }
  stop();
}

ORLDiagnostics::Pipeline EventPipeline::status() const {
  const auto store = dao_.status();
  const std::lock_guard lock(statusMutex_);
  auto status = status_;
  status.waiting = store.rowCount;
  if (store.failure) status.storeFailure = store.failure->description();
  return status;
}

void EventPipeline::countSent(std::size_t count) {
  const std::lock_guard lock(statusMutex_);
  status_.sent += count;
}

void EventPipeline::countFailure(const Error& error) {
  const std::lock_guard lock(statusMutex_);
  ++status_.failed;
  status_.lastFailure = error.description();
}

void EventPipeline::stop() {
  disposeBag_.dispose();
  const std::lock_guard lock(sendingMutex_);
  isStopped_ = true;
  senderLock_.reset();
}

Observable<Unit> EventPipeline::acquireSending() {
  {
    const std::lock_guard lock(sendingMutex_);
    if (isStopped_) return reactive::empty<Unit>();
    if (senderLock_) return reactive::just(Unit{});
  }
  return inStore(dao_.acquireSending(), "acquiring the right to send")
      .concatMap([weak = weak_from_this()](const std::shared_ptr<const void>& lock) {
        const auto self = weak.lock();
        return self ? self->acceptSending(lock) : reactive::empty<Unit>();
      });
}

Observable<Unit> EventPipeline::acceptSending(const std::shared_ptr<const void>& lock) {
  const std::lock_guard guard(sendingMutex_);
  // Only one owner of the store may send; for the others the tick ends here.
  if (isStopped_ || !lock) return reactive::empty<Unit>();
  senderLock_ = lock;
  return reactive::just(Unit{});
}

template <class T>
Observable<T> EventPipeline::inStore(Observable<T> step, const char* name) const {
  const auto describe = [dao = dao_, name] { return dao.location() + ": " + name; };
  return waitingOutRefusals(std::move(step), describe, options_.concurrentScheduler);
}

Observable<Unit> EventPipeline::removeStale() {
  return inStore(dao_.removeUpTo(options_.currentDate() - maximumAge), "deleting expired events");
}

Observable<EventBatch> EventPipeline::sendOldest() {
  const auto countFailure = [weak = weak_from_this()](const Error& error) {
    if (const auto self = weak.lock()) self->countFailure(error);
  };
  return inStore(dao_.fetchOldest(options_.fetchLimit, options_.concurrentScheduler), "reading events")
      .filter([](const EventBatch& events) { return !events->empty(); })
      .concatMap([send = options_.send, countFailure](const EventBatch& events) {
        return send(*events).doOn({.onError = countFailure}).map([events](const Unit&) { return events; });
      })
      .concatMap([weak = weak_from_this(), remove = options_.remove](const EventBatch& events) {
        const auto self = weak.lock();
        auto removal = remove(*events);
        if (self) removal = self->inStore(std::move(removal), "deleting sent events");
        return removal.map([events](const Unit&) { return events; });
      });
}

}  // namespace orrelo
