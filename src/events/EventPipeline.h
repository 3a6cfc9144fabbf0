#pragma once

#include "events/EventDao.h"
#include "reactive/Scheduler.h"
#include "reactive/Subjects.h"

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo {

/// Store first, then forward. `save` writes an event to the store and gives a signal. Signals and a timer
/// make ticks; each tick drops what is older than a day, then sends the oldest events and deletes them when
/// the service has them. Ticks run one after the other, so no two requests are ever under way, and an event
/// that was sent but not deleted, because the process died in between, is sent again under the same id.
///
/// The first failure of a step resubscribes: what was stored stays stored, for the next tick. The second,
/// however much later, ends the pipeline for good. That is deliberate: `save` goes on writing, and the next
/// launch or the next `Orrelo::initialize` sends.
class EventPipeline : public std::enable_shared_from_this<EventPipeline> {
 public:
  struct Options {
    /// A tick comes when `count` signals have, or `timeSpan` after the last tick: an idle tick then.
    std::chrono::milliseconds timeSpan;
    std::size_t count;
    /// At most so many events are sent at once.
    std::size_t fetchLimit;
    /// Its timer makes the idle ticks.
    reactive::SchedulerPtr mainScheduler;
    reactive::SchedulerPtr concurrentScheduler;
    std::function<Date()> currentDate;
    std::function<reactive::Observable<reactive::Unit>(const std::vector<Event>&)> send;
    std::function<reactive::Observable<reactive::Unit>(const std::vector<Event>&)> remove;
    /// After the events were sent and deleted.
    std::function<void(const std::vector<Event>&)> onSent;
    /// When the pipeline has ended for good.
    std::function<void(const Error&)> onEnded;
  };

  static constexpr std::chrono::seconds maximumAge{86400};

  static std::shared_ptr<EventPipeline> create(EventDao dao, Options options);

  /// Returns at once. An event that the store refuses is lost without a word. Any thread.
  void save(const Event& event);

  /// Ends the sending, for another pipeline to take over; `save` goes on writing. Any thread.
  void stop();

 private:
  EventPipeline(EventDao dao, Options options);

  void start();
  bool maySend();
  reactive::Observable<reactive::Unit> removeStale();
  reactive::Observable<std::vector<Event>> sendOldest() const;

  EventDao dao_;
  Options options_;
  reactive::PublishSubject<reactive::Unit> queueSource_;
  std::mutex sendingMutex_;
  std::shared_ptr<const void> sendingRight_;
  bool isStopped_ = false;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
