#pragma once

#include "events/EventDao.h"
#include "reactive/Scheduler.h"
#include "reactive/Subjects.h"

#include <orrelo/ORLDiagnostics.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace orrelo {

/// Stores events and forwards them to the service. `save` writes an event to the store and emits a signal.
/// Signals and a timer trigger ticks; each tick removes events older than a day, sends the oldest events, and
/// deletes them once the service has received them. Ticks run one after the other, so there is at most one
/// request at a time. If the process dies between sending and deleting an event, the event is sent again with
/// the same id.
///
/// A step that the store refuses for now (busy, full, read-only) waits and asks again, after pauses that grow
/// from 0.1 to 30 seconds. The first other failure of a step is retried by resubscribing; the events stay
/// stored for the next tick. The second one, however much later, ends the pipeline permanently. This is
/// deliberate: `save` continues to store events, and the next launch or the next `Orrelo::initialize` sends
/// them.
class EventPipeline : public std::enable_shared_from_this<EventPipeline> {
 public:
  struct Options {
    /// A tick is triggered by `count` signals, or when `timeSpan` has passed since the last one (an idle
    /// tick).
    std::chrono::milliseconds timeSpan;
    std::size_t count;
    /// The maximum number of events per request.
    std::size_t fetchLimit;
    /// Runs the timer of the idle ticks.
    reactive::SchedulerPtr mainScheduler;
    reactive::SchedulerPtr concurrentScheduler;
    std::function<Date()> currentDate;
    std::function<reactive::Observable<reactive::Unit>(const std::vector<Event>&)> send;
    std::function<reactive::Observable<reactive::Unit>(const std::vector<Event>&)> remove;
    /// Called after the events were sent and deleted.
    std::function<void(const std::vector<Event>&)> onSent;
    /// Called when the pipeline has ended permanently.
    std::function<void(const Error&)> onEnded;
  };

  static constexpr std::chrono::seconds maximumAge{86400};

  static std::shared_ptr<EventPipeline> create(EventDao dao, Options options);

  /// Called once, on the stores' thread: after the commit, or with the reason for which the store has refused
  /// the event.
  using SaveCompletion = std::function<void(const std::optional<Error>& failure)>;

  /// Returns at once. `mayBeStored` looks for the event in the store before inserting it. Without a
  /// completion an event that the store refuses is lost silently. Any thread.
  void save(const Event& event, bool mayBeStored, SaveCompletion completion);

  /// Stops sending, so that another pipeline can take over; `save` continues to store events. Any thread.
  void stop();

  /// Any thread.
  ORLDiagnostics::Pipeline status() const;

 private:
  EventPipeline(EventDao dao, Options options);

  void start();
  void end(const Error& error);
  /// Acquires the right to send, unless it is already held. Emits nothing if another owner holds it.
  reactive::Observable<reactive::Unit> acquireSending();
  reactive::Observable<reactive::Unit> acceptSending(const std::shared_ptr<const void>& lock);
  reactive::Observable<reactive::Unit> removeStale();
  reactive::Observable<EventBatch> sendOldest();
  void countSent(std::size_t count);
  void countFailure(const Error& error);
  /// A step of the store, in which a refusal is a wait.
  template <class T>
  reactive::Observable<T> inStore(reactive::Observable<T> step, const char* name) const;

  EventDao dao_;
  Options options_;
  reactive::PublishSubject<reactive::Unit> queueSource_;
  std::mutex sendingMutex_;
  std::shared_ptr<const void> senderLock_;
  bool isStopped_ = false;
  mutable std::mutex statusMutex_;
  ORLDiagnostics::Pipeline status_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
