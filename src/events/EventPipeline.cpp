#include "events/EventPipeline.h"

#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

using reactive::Observable;
using reactive::Unit;

EventPipeline::EventPipeline(EventDao dao, Options options)
    : dao_(std::move(dao)), options_(std::move(options)) {}

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
      .observeOn(options_.concurrentScheduler)
      .concatMap([weak, deallocated](const Unit&) {
        const auto self = weak.lock();
        return self ? self->removeStale() : reactive::error<Unit>(deallocated);
      })
      .concatMap([weak, deallocated](const Unit&) {
        const auto self = weak.lock();
        return self ? self->sendOldest() : reactive::error<std::vector<Event>>(deallocated);
      })
      .retry(2)
      .subscribe({.onNext = options_.onSent,
                  .onError =
                      [weak, onEnded = options_.onEnded](const Error& error) {
                        if (const auto self = weak.lock()) self->stop();
                        onEnded(error);
                      }})
      .disposedBy(disposeBag_);
}

void EventPipeline::stop() {
  disposeBag_.dispose();
  const std::lock_guard lock(sendingMutex_);
  isStopped_ = true;
  senderLock_.reset();
}

bool EventPipeline::maySend() {
  const std::lock_guard lock(sendingMutex_);
  if (!isStopped_ && !senderLock_) senderLock_ = dao_.acquireSending();
  return senderLock_ != nullptr;
}

Observable<Unit> EventPipeline::removeStale() {
  // Only one owner of the store may send; for the others the tick ends here.
  if (!maySend()) return reactive::empty<Unit>();
  return dao_.removeUpTo(options_.currentDate() - maximumAge);
}

Observable<std::vector<Event>> EventPipeline::sendOldest() const {
  return dao_.fetchOldest(options_.fetchLimit, options_.concurrentScheduler)
      .filter([](const std::vector<Event>& events) { return !events.empty(); })
      .concatMap([send = options_.send](const std::vector<Event>& events) {
        return send(events).map([events](const Unit&) { return events; });
      })
      .concatMap([remove = options_.remove](const std::vector<Event>& events) {
        return remove(events).map([events](const Unit&) { return events; });
      });
}

}  // namespace orrelo
