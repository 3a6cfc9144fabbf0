#include "events/EventIntake.h"

#include "base/explain.h"
#include "events/DroppedEvent.h"
#include "events/FlushWaiters.h"
#include "events/UnwrittenEvents.h"
#include "model/UserManager.h"
#include "platform/posix/ForkedChild.h"
#include "platform/threads/KitThread.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>
#include <orrelo/platform/WorkerPool.h>

#include <algorithm>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t maximumKeptCapacity = 1024;
constexpr std::chrono::seconds maintenanceInterval{60};
/// The worker rests this long between two runs. What the journal holds is safe meanwhile, and a host that
/// reports many events shares the processor with fewer runs.
constexpr std::chrono::milliseconds pauseBetweenRuns{20};
/// Far below what the clocks of a wait can add.
constexpr std::chrono::milliseconds maximumTimeout = std::chrono::hours(24 * 365);

}  // namespace

struct EventIntake::State {
  /// The process that has initialised the kit.
  OwnerProcess owner;

  /// An event as the caller's thread leaves it.
  struct Queued {
    AcceptedEvent event;
    /// Kept only to be destroyed by the worker, since that takes a tenth of the time of the host's call.
    EventValues values;
  };

  /// Guards the fields below, each time for a few instructions.
  std::mutex mutex;
  std::vector<Queued> queue;
  std::vector<EventGate::Group> adopted;
  /// True while a task is posted, running or resting that will process the queues.
  bool isScheduled = false;
  bool isResting = false;
  /// The running task must not rest.
  bool isHurried = false;
  std::size_t restCount = 0;
  std::size_t connectionCount = 0;
  std::uint64_t adoptedCount = 0;

  UnwrittenEvents unwritten;
  FlushWaiters waiters;
  EventGate gate{waiters, unwritten};
};

EventIntake& EventIntake::shared() {
  static auto* const intake = new EventIntake;
  return *intake;
}

EventIntake::EventIntake() : state_(*new State) {}

void EventIntake::connect(Destination destination) {
  if (!state_.owner.claim()) {
    explain(
        ExplanationLevel::error,
        "Orrelo.initialize() was called before this process was forked. Its events are left to the journal; "
        "call it in the child alone to send them from there.");
    return;
  }
  state_.gate.connect(std::move(destination));
  std::size_t connection = 0;
  {
    const std::lock_guard lock(state_.mutex);
    connection = ++state_.connectionCount;
    // The task may have been posted to another platform's pool, which runs no more.
    state_.isScheduled = true;
    state_.isResting = false;
  }
  Platform::current().workers->post(QualityOfService::utility, [this, connection] {
    const auto& journal = Platform::current().eventJournal;
    if (journal) journal->prepare();
    process();
    state_.gate.restart();
    maintain(connection);
  });
}

void EventIntake::accept(std::string_view name, EventValues&& values) {
  if (!state_.owner.isParent() && state_.gate.isDisabled()) {
    return explainDroppedEvent(name, DropReason::disabled);
  }
  const auto& platform = Platform::current();
  accept(EventRecord::encode(platform.random->uuid(), platform.clock->now(), currentUserId(), name, values),
         std::move(values));
}

void EventIntake::accept(const BIEvent& event) {
  accept(EventRecord::encode(event), {});
}

void EventIntake::accept(EventJournal::Record record, EventValues&& values) {
  const auto& platform = Platform::current();
  const auto& journal = platform.eventJournal;
  auto appended =
      journal
          ? journal->append(record)
          : std::variant<EventJournal::Position, EventJournal::Refusal>(EventJournal::Refusal::unwritable);
  const auto* const refusal = std::get_if<EventJournal::Refusal>(&appended);
  if (state_.owner.isParent()) {
    // Neither the locks nor the threads of the parent can be used; its next launch or tick adopts the record.
    if (refusal != nullptr) explainDroppedEvent(record, DropReason::refused);
    return;
  }
  EventPlace place;
  if (refusal != nullptr) {
    place.reservedSize = record.size();
    if (!state_.unwritten.reserve(place.reservedSize, *refusal)) {
      return explainDroppedEvent(record, DropReason::refused);
    }
  } else {
    place.position = std::get<EventJournal::Position>(appended);
    state_.unwritten.journalHasAccepted();
  }
  place.ticket = state_.waiters.add();
  bool isScheduled = false;
  {
    const std::lock_guard lock(state_.mutex);
    state_.queue.push_back({{std::move(record), place}, std::move(values)});
    isScheduled = std::exchange(state_.isScheduled, true);
  }
  if (!isScheduled) return platform.workers->post(QualityOfService::utility, &processShared);
  if (!place.position) hurry();
}

// It has no captures, so that posting it allocates nothing on the caller's thread.
void EventIntake::processShared() {
  shared().process();
}

void EventIntake::process() {
  std::vector<State::Queued> queue;
  std::vector<EventGate::Group> adopted;
  bool mustRest = false;
  std::size_t number = 0;
  while (!mustRest) {
    queue.clear();
    if (queue.capacity() > maximumKeptCapacity) queue = {};
    adopted.clear();
    {
      // Swapping reuses the vector's memory for the next calls, unless a burst has made it too large.
      const std::lock_guard lock(state_.mutex);
      queue.swap(state_.queue);
      adopted.swap(state_.adopted);
      state_.isHurried = false;
      state_.isScheduled = !queue.empty() || !adopted.empty();
      if (!state_.isScheduled) return;
    }
    // An event that fails must not block the following ones.
    for (auto& group : adopted) runGuarded([&] { state_.gate.enter(std::move(group)); });
    for (auto& queued : queue) runGuarded([&] { state_.gate.enter({std::move(queued.event)}); });
    const std::lock_guard lock(state_.mutex);
    mustRest = !state_.isHurried;
    state_.isResting = mustRest;
    number = ++state_.restCount;
  }
  Platform::current().workers->postAfter(QualityOfService::utility, pauseBetweenRuns, [this, number] {
    {
      const std::lock_guard lock(state_.mutex);
      if (number != state_.restCount || !std::exchange(state_.isResting, false)) return;
    }
    process();
  });
}

void EventIntake::hurry() {
  {
    const std::lock_guard lock(state_.mutex);
    state_.isHurried = state_.isScheduled && !state_.isResting;
    if (!std::exchange(state_.isResting, false)) return;
  }
  Platform::current().workers->post(QualityOfService::utility, &processShared);
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
  EventGate::Group group;
  group.reserve(records.size());
  for (auto& record : records) {
    group.push_back({std::move(record.record), {record.position, 0, state_.waiters.add()}, true, true});
  }
  {
    const std::lock_guard lock(state_.mutex);
    state_.adoptedCount += group.size();
    state_.adopted.push_back(std::move(group));
    if (std::exchange(state_.isScheduled, true)) return;
  }
  Platform::current().workers->post(QualityOfService::utility, &processShared);
}

bool EventIntake::isUsable() const {
  return !state_.owner.isParent();
}

ORLDiagnostics::Events EventIntake::counts() {
  std::uint64_t adopted = 0;
  {
    const std::lock_guard lock(state_.mutex);
    adopted = state_.adoptedCount;
  }
  const auto counts = state_.waiters.counts();
  return {counts.added - adopted, adopted, counts.added - counts.settled, droppedEvents()};
}

ORLDiagnostics::Journal EventIntake::journalUsage() {
  const auto& journal = Platform::current().eventJournal;
  const auto usage = journal ? journal->usage() : EventJournal::Usage();
  return {usage.records, usage.bytes, state_.unwritten.size()};
}

bool EventIntake::flush(std::chrono::milliseconds timeout) {
  if (isKitThread() || state_.owner.isParent()) return false;
  hurry();
  return state_.waiters.wait(std::min(timeout, maximumTimeout));
}

void EventIntake::flush(std::chrono::milliseconds timeout, std::function<void(bool)> completion) {
  if (state_.owner.isParent()) return;
  const auto workers = Platform::current().workers;
  // The stores' thread must not be blocked by the host.
  const auto finish = [workers, completion = std::move(completion)](bool isFlushed) {
    workers->post(QualityOfService::utility, [completion, isFlushed] { completion(isFlushed); });
  };
  const auto waiter = state_.waiters.add(finish);
  if (!waiter) return finish(true);
  hurry();
  workers->postAfter(QualityOfService::utility, std::min(timeout, maximumTimeout),
                     [this, finish, waiter = *waiter] {
                       if (state_.waiters.cancel(waiter)) finish(false);
                     });
}

}  // namespace orrelo
