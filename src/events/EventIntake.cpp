#include "events/EventIntake.h"

#include "base/Logger.h"
#include "events/EventPipeline.h"
#include "events/FlushWaiters.h"
#include "events/KelsoInsight.h"
#include "model/UserManager.h"
#include "platform/Random.h"
#include "platform/WorkerPool.h"
#include "platform/posix/ForkedChild.h"
#include "platform/threads/KitThread.h"
#include "reactive/Disposable.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t maximumKeptCapacity = 1024;
constexpr std::chrono::seconds maintenanceInterval{60};
constexpr std::chrono::milliseconds firstPause{100};
constexpr std::chrono::milliseconds longestPause{30'000};

bool isTooOld(const Event& event) {
  return Platform::current().clock->now() - event.eventTime >= EventPipeline::maximumAge;
}

std::string reasonOf(EventJournal::Refusal refusal) {
  switch (refusal) {
    case EventJournal::Refusal::tooLarge:
      return "An event is too large for the journal";
    case EventJournal::Refusal::full:
      return "The journal of events is full";
    case EventJournal::Refusal::unwritable:
      break;
  }
  return "The journal of events cannot be written in " + Platform::current().directories->data().string();
}

}  // namespace

/// An event as the caller's thread leaves it. It waits in memory alone if it has no position in the journal.
struct EventIntake::Queued {
  EventJournal::Record record;
  std::optional<EventJournal::Position> position;
  FlushWaiters::Ticket ticket;
  bool isAdopted;
  /// Kept only to be destroyed by the worker, since that takes a tenth of the time of the host's call.
  EventValues values;
};

/// An event on its way to the store.
struct EventIntake::Pending {
  std::optional<EventJournal::Position> position;
  /// The size in memory that it takes from the heap's bound; zero if it is in the journal.
  std::size_t heapSize;
  FlushWaiters::Ticket ticket;
  bool isAdopted;
  /// True if an earlier commit may have succeeded, or may have been reported as failed after it succeeded.
  bool mayBeStored;
  EventOrigin origin;
  Event event;
};

struct EventIntake::State {
  struct Connection {
    explicit Connection(Destination connected) : destination(std::move(connected)) {}

    const Destination destination;
    reactive::DisposeBag disposeBag;
  };

  /// Guards all fields, each time for a few instructions.
  std::mutex mutex;
  std::shared_ptr<Connection> connection;
  std::size_t connectionCount = 0;
  /// FetchConfigUseCase::disabled of the connection. The caller's thread reads it without a lock, so that the
  /// former ones, a few bytes each, stay alive.
  std::atomic<const std::atomic<bool>*> disabled = nullptr;
  std::vector<std::shared_ptr<const std::atomic<bool>>> keptDisabled;
  std::vector<std::vector<Queued>> adopted;
  std::vector<Queued> queue;
  /// True while a task is posted or running that will process the queues.
  bool isScheduled = false;
  std::map<std::size_t, Group> questions;
  std::size_t questionCount = 0;
  Group refused;
  std::chrono::milliseconds pause = firstPause;
  bool isRetryScheduled = false;
  std::size_t heapSize = 0;
  /// Delays the exit of the process while events wait in memory alone.
  std::optional<ExitBlocker> exitBlocker;
  std::optional<EventJournal::Refusal> reportedRefusal;
  FlushWaiters waiters;
};

EventIntake& EventIntake::shared() {
  static auto* const intake = new EventIntake;
  return *intake;
}

EventIntake::EventIntake() : state_(*new State) {}

void EventIntake::connect(Destination destination) {
  processGeneration();  // a fork can only be recognised after this call
  std::map<std::size_t, Group> questions;
  std::shared_ptr<State::Connection> former;
  std::size_t connection = 0;
  {
    const std::lock_guard lock(state_.mutex);
    former = std::exchange(state_.connection, std::make_shared<State::Connection>(std::move(destination)));
    connection = ++state_.connectionCount;
    state_.keptDisabled.push_back(state_.connection->destination.fetchConfigUseCase->disabled());
    state_.disabled = state_.keptDisabled.back().get();
    questions.swap(state_.questions);
    // The tasks may have been posted to another platform's pool, which runs no more.
    state_.isScheduled = true;
    state_.isRetryScheduled = true;
  }
  if (former) former->disposeBag.dispose();
  for (auto& [number, group] : questions) group.front()->isAdopted ? ask(std::move(group)) : settle(group);
  Platform::current().workers->post(QualityOfService::utility, [this, connection] {
    process();
    retry();
    maintain(connection);
  });
}

void EventIntake::accept(std::string_view name, EventValues&& values) {
  if (!isForkedChild() && isDisabled()) return;
  const auto& platform = Platform::current();
  accept(EventRecord::encode(platform.random->uuid(), platform.clock->now(), currentUserId(), name, values),
         std::move(values));
}

void EventIntake::accept(const BIEvent& event) {
  accept(EventRecord::encode(event), {});
}

bool EventIntake::isDisabled() const {
  const auto* const disabled = state_.disabled.load(std::memory_order_acquire);
  if (disabled == nullptr || !disabled->load(std::memory_order_relaxed)) return false;
  std::shared_ptr<State::Connection> connection;
  {
    const std::lock_guard lock(state_.mutex);
    connection = state_.connection;
  }
  if (!connection) return false;
  const auto config = connection->destination.fetchConfigUseCase->freshConfig();
  return config && !config->sdkEnable;
}

void EventIntake::accept(const EventJournal::Record& record, EventValues&& values) {
  const auto& platform = Platform::current();
  const auto& journal = platform.eventJournal;
  auto appended =
      journal
          ? journal->append(record)
          : std::variant<EventJournal::Position, EventJournal::Refusal>(EventJournal::Refusal::unwritable);
  // Neither the locks nor the threads of the parent can be used; its next launch or tick adopts the record.
  if (isForkedChild()) return;
  const auto* const position = std::get_if<EventJournal::Position>(&appended);
  if (position == nullptr && !reserveHeap(record.size(), std::get<EventJournal::Refusal>(appended))) return;
  {
    const std::lock_guard lock(state_.mutex);
    if (position != nullptr) state_.reportedRefusal.reset();
    state_.queue.push_back({record, position == nullptr ? std::nullopt : std::optional(*position),
                            state_.waiters.add(), false, std::move(values)});
    if (std::exchange(state_.isScheduled, true)) return;
  }
  platform.workers->post(QualityOfService::utility, &processShared);
}

bool EventIntake::reserveHeap(std::size_t size, EventJournal::Refusal refusal) {
  bool hasRoom = false;
  bool isNew = false;
  {
    const std::lock_guard lock(state_.mutex);
    hasRoom = state_.heapSize + size <= maximumHeapSize;
    if (hasRoom) state_.heapSize += size;
    if (hasRoom && !state_.exitBlocker) state_.exitBlocker.emplace();
    isNew = std::exchange(state_.reportedRefusal, refusal) != refusal;
  }
  if (!hasRoom) {
    log(LogLevel::ERROR, [&] {
      return reasonOf(refusal) + ", and the events that wait in memory take 16 MiB: the event is refused.";
    });
  } else if (isNew) {
    log(LogLevel::WARNING, [&] {
      return reasonOf(refusal) +
             ": events wait in memory alone until they are stored. A process that is killed "
             "before that loses them.";
    });
  }
  return hasRoom;
}

// It has no captures, so that posting it allocates nothing on the caller's thread.
void EventIntake::processShared() {
  shared().process();
}

void EventIntake::process() {
  std::vector<Queued> queue;
  std::vector<std::vector<Queued>> adopted;
  while (true) {
    queue.clear();
    if (queue.capacity() > maximumKeptCapacity) queue = {};
    adopted.clear();
    {
      // Swapping reuses the vector's memory for the next calls, unless a burst has made it too large.
      const std::lock_guard lock(state_.mutex);
      queue.swap(state_.queue);
      adopted.swap(state_.adopted);
      state_.isScheduled = !queue.empty() || !adopted.empty();
      if (!state_.isScheduled) return;
    }
    // An event that fails must not block the following ones.
    for (const auto& records : adopted) runGuarded([&] { enter(records); });
    for (auto& record : queue) runGuarded([&] { enter(std::span(&record, 1)); });
  }
}

// Decodes records that ask the configuration together.
void EventIntake::enter(std::span<const Queued> records) {
  Group asking;
  Group dropped;
  std::size_t unreadable = 0;
  for (const auto& record : records) {
    auto content = EventRecord::decode(record.record.view());
    const bool isReadable = content.has_value();
    if (!content) content.emplace();
    const auto pending = std::make_shared<Pending>(
        Pending{record.position, record.position ? 0 : record.record.size(), record.ticket, record.isAdopted,
                record.isAdopted, content->origin, std::move(content->event)});
    unreadable += isReadable ? 0 : 1;
    if (!isReadable || (record.isAdopted && isTooOld(pending->event))) {
      dropped.push_back(pending);
    } else if (pending->origin == EventOrigin::kit) {
      store(pending);
    } else {
      asking.push_back(pending);
    }
  }
  if (unreadable > 0) {
    log(LogLevel::ERROR, [&] {
      return std::to_string(unreadable) + " records of the journal are no events and are dropped.";
    });
  }
  settle(dropped);
  if (!asking.empty()) ask(std::move(asking));
}

void EventIntake::ask(Group group) {
  std::shared_ptr<State::Connection> connection;
  {
    const std::lock_guard lock(state_.mutex);
    connection = state_.connection;
  }
  if (!connection) return settle(group);
  auto& fetchConfigUseCase = *connection->destination.fetchConfigUseCase;
  if (const auto config = fetchConfigUseCase.freshConfig()) return finish(group, config->sdkEnable);

  std::size_t question = 0;
  {
    std::unique_lock lock(state_.mutex);
    if (connection != state_.connection) {
      lock.unlock();
      return ask(std::move(group));
    }
    question = ++state_.questionCount;
    state_.questions.emplace(question, std::move(group));
  }
  fetchConfigUseCase.fetch()
      .subscribe({.onNext = [this, question](const Config& config) { answer(question, config.sdkEnable); },
                  .onError = [this, question](const Error&) { answer(question, false); },
                  .onCompleted = [this, question] { answer(question, false); }})
      .disposedBy(connection->disposeBag);
}

void EventIntake::answer(std::size_t question, bool mayStore) {
  Group group;
  {
    const std::lock_guard lock(state_.mutex);
    const auto found = state_.questions.find(question);
    if (found == state_.questions.end()) return;
    group = std::move(found->second);
    state_.questions.erase(found);
  }
  finish(group, mayStore);
}

void EventIntake::finish(const Group& group, bool mayStore) {
  if (!mayStore) return settle(group);
  for (const auto& pending : group) store(pending);
}

void EventIntake::store(const PendingPtr& pending) {
  const auto completion = [this, pending](const std::optional<Error>& failure) {
    if (failure) return onRefused(pending, *failure);
    settle({pending});
  };
  if (pending->origin == EventOrigin::kit) {
    const auto insight = KelsoInsight::instance();
    return insight ? insight->save(pending->event, pending->mayBeStored, completion) : settle({pending});
  }
  std::shared_ptr<State::Connection> connection;
  {
    const std::lock_guard lock(state_.mutex);
    connection = state_.connection;
  }
  if (!connection) return settle({pending});
  connection->destination.saveEventUseCase.save(pending->event, pending->mayBeStored, completion);
}

void EventIntake::onRefused(const PendingPtr& pending, const Error& failure) {
  pending->mayBeStored = true;
  std::chrono::milliseconds pause{};
  bool isFirst = false;
  {
    const std::lock_guard lock(state_.mutex);
    state_.refused.push_back(pending);
    if (std::exchange(state_.isRetryScheduled, true)) return;
    isFirst = state_.pause == firstPause;
    pause = std::exchange(state_.pause, std::min(2 * state_.pause, longestPause));
  }
  if (isFirst) {
    log(LogLevel::WARNING, [&] {
      return "A store refuses events for now: " + failure.description() +
             ". They are kept, and tried again with growing pauses for a day.";
    });
  }
  Platform::current().workers->postAfter(QualityOfService::utility, pause, [this] { retry(); });
}

void EventIntake::retry() {
  Group group;
  {
    const std::lock_guard lock(state_.mutex);
    group.swap(state_.refused);
    state_.isRetryScheduled = false;
  }
  for (const auto& pending : group) isTooOld(pending->event) ? settle({pending}) : store(pending);
}

void EventIntake::settle(const Group& group) {
  if (group.empty()) return;
  std::vector<EventJournal::Position> positions;
  std::vector<FlushWaiters::Completion> reached;
  {
    const std::lock_guard lock(state_.mutex);
    for (const auto& pending : group) {
      if (pending->position) positions.push_back(*pending->position);
      state_.heapSize -= std::min(pending->heapSize, state_.heapSize);
      state_.waiters.settle(pending->ticket, reached);
    }
    if (state_.heapSize == 0) state_.exitBlocker.reset();
    if (state_.refused.empty()) state_.pause = firstPause;
  }
  const auto& platform = Platform::current();
  if (!positions.empty() && platform.eventJournal) platform.eventJournal->release(std::move(positions));
  for (const auto& completion : reached) completion(true);
}

void EventIntake::maintain(std::size_t connection) {
  {
    const std::lock_guard lock(state_.mutex);
    if (connection != state_.connectionCount) return;
  }
  const auto& platform = Platform::current();
  if (!platform.eventJournal) return;
  platform.eventJournal->maintain([this](auto records) { adopt(std::move(records)); });
  platform.workers->postAfter(QualityOfService::utility, maintenanceInterval,
                              [this, connection] { maintain(connection); });
}

void EventIntake::adopt(std::vector<EventJournal::Adopted> records) {
  if (records.empty()) return;
  std::vector<Queued> group;
  group.reserve(records.size());
  {
    const std::lock_guard lock(state_.mutex);
    for (auto& record : records) {
      group.push_back({std::move(record.record), record.position, state_.waiters.add(), true, {}});
    }
    state_.adopted.push_back(std::move(group));
    if (std::exchange(state_.isScheduled, true)) return;
  }
  Platform::current().workers->post(QualityOfService::utility, &processShared);
}

bool EventIntake::flush(std::chrono::milliseconds timeout) {
  if (isKitThread() || isForkedChild()) return false;
  struct Arrival {
    std::mutex mutex;
    std::condition_variable changed;
    bool hasArrived = false;
  };
  const auto arrival = std::make_shared<Arrival>();
  std::size_t waiter = 0;
  {
    const std::lock_guard lock(state_.mutex);
    const auto added = state_.waiters.wait([arrival](bool) {
      const std::lock_guard locked(arrival->mutex);
      arrival->hasArrived = true;
      arrival->changed.notify_all();
    });
    if (!added) return true;
    waiter = *added;
  }
  std::unique_lock lock(arrival->mutex);
  const bool hasArrived = arrival->changed.wait_for(lock, timeout, [&] { return arrival->hasArrived; });
  lock.unlock();
  if (hasArrived) return true;
  const std::lock_guard stateLock(state_.mutex);
  state_.waiters.cancel(waiter);
  return false;
}

void EventIntake::flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion) {
  const auto workers = Platform::current().workers;
  // The stores' thread must not be blocked by the host.
  const auto finish = [workers, completion = std::move(completion)](bool isFlushed) {
    workers->post(QualityOfService::utility, [completion, isFlushed] { completion(isFlushed); });
  };
  if (isForkedChild()) return;
  std::optional<std::size_t> waiter;
  {
    const std::lock_guard lock(state_.mutex);
    waiter = state_.waiters.wait(finish);
  }
  if (!waiter) return finish(true);
  workers->postAfter(QualityOfService::utility, timeout, [this, finish, waiter = *waiter] {
    {
      const std::lock_guard lock(state_.mutex);
      if (!state_.waiters.cancel(waiter)) return;
    }
    finish(false);
  });
}

}  // namespace orrelo
