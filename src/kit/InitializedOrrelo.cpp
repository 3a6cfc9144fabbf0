#include "kit/InitializedOrrelo.h"

#include "base/Utf8.h"
#include "model/UserManager.h"
#include "platform/Random.h"
#include "platform/WorkerPool.h"
#include "platform/threads/KitThread.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <mutex>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

constexpr std::size_t maximumKeptCapacity = 1024;

/// An event of the host before its values are mapped.
struct QueuedEvent {
  QueuedEvent(const std::optional<std::string>& user, std::string eventName, EventValues&& eventValues,
              Date now)
      : userId(user), name(std::move(eventName)), values(std::move(eventValues)), time(now) {}

  std::optional<std::string> userId;
  std::string name;
  EventValues values;
  Date time;
};

struct Slot {
  /// Guards all fields. It is the only lock that a call of `sendEvent` takes.
  std::mutex mutex;
  std::shared_ptr<InitializedOrrelo> instance;
  std::vector<QueuedEvent> events;
  /// True while a task is posted or running that will store the queued events.
  bool isScheduled = false;
};

Slot& slot() {
  static auto* const slot = new Slot;
  return *slot;
}

/// Moves the queued events to `events`. Returns false if there were none; then no task is scheduled any more.
bool takeQueued(std::vector<QueuedEvent>& events) {
  // Swapping reuses the vector's memory for the next calls, unless a burst has made it too large.
  events.clear();
  if (events.capacity() > maximumKeptCapacity) events = {};
  auto& slot = orrelo::slot();
  const std::lock_guard lock(slot.mutex);
  std::swap(events, slot.events);
  slot.isScheduled = !events.empty();
  return slot.isScheduled;
}

}  // namespace

std::shared_ptr<InitializedOrrelo> InitializedOrrelo::current() {
  const std::lock_guard lock(slot().mutex);
  return slot().instance;
}

void InitializedOrrelo::makeCurrent(std::shared_ptr<InitializedOrrelo> instance) {
  {
    const std::lock_guard lock(slot().mutex);
    std::swap(slot().instance, instance);
  }
  // Another thread may still hold the former instance, such as a worker for its queued events.
  if (!instance) return;
  instance->component->eventComponent().saveEventUseCase.stopSending();
  instance->component->pushComponent().orreloPush->stopSending();
}

void InitializedOrrelo::enqueue(std::string_view name, EventValues&& values) {
  const auto& platform = Platform::current();
  const auto& userId = currentUserId();
  const auto now = platform.clock->now();
  {
    auto& slot = orrelo::slot();
    const std::lock_guard lock(slot.mutex);
    // Constructed in place: constructing it before the lock and moving it takes a tenth of the call's time.
    slot.events.emplace_back(userId, std::string(name), std::move(values), now);
    if (std::exchange(slot.isScheduled, true)) return;
  }
  platform.workers->post(QualityOfService::utility, &storeQueued);
}

void InitializedOrrelo::storeQueued() {
  std::vector<QueuedEvent> events;
  while (takeQueued(events)) {
    const auto instance = current();
    for (auto& event : events) {
      runGuarded([&] {  // an event that fails must not block the following ones
        instance->store({Platform::current().random->uuid(), std::move(event.userId),
                         utf8::repaired(event.name), instance->eventMapper.map(event.values), event.time});
      });
    }
  }
}

void InitializedOrrelo::store(Event event) {
  component->configComponent()
      .fetchConfigUseCase->fetch()
      .filter([](const Config& config) { return config.sdkEnable; })
      .subscribe([save = component->eventComponent().saveEventUseCase,
                  event = std::move(event)](const Config&) { save.save(event); })
      .disposedBy(disposeBag_);
}

}  // namespace orrelo
