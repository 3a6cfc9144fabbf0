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

constexpr std::size_t keptCapacity = 1024;

/// An event as the call hands it over: the values are still the host's.
struct Accepted {
  Accepted(const std::optional<std::string>& user, std::string eventName, EventValues&& eventValues, Date now)
      : userId(user), name(std::move(eventName)), values(std::move(eventValues)), time(now) {}

  std::optional<std::string> userId;
  std::string name;
  EventValues values;
  Date time;
};

struct Slot {
  /// One for all: a call of `sendEvent` takes it and no other.
  std::mutex mutex;
  std::shared_ptr<InitializedOrrelo> instance;
  std::vector<Accepted> accepted;
  /// Whether a task is posted, or at work, that will take what was accepted.
  bool isScheduled = false;
};

Slot& slot() {
  static auto* const slot = new Slot;
  return *slot;
}

/// False when there were none: then nothing is scheduled any more.
bool takeAccepted(std::vector<Accepted>& accepted) {
  // Its memory serves the next calls, but for what only a burst needed.
  accepted.clear();
  if (accepted.capacity() > keptCapacity) accepted = {};
  auto& slot = orrelo::slot();
  const std::lock_guard lock(slot.mutex);
  std::swap(accepted, slot.accepted);
  slot.isScheduled = !accepted.empty();
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
  // A worker may still hold it, for the events that it accepted.
  if (instance) instance->component->eventComponent().saveEventUseCase.stopSending();
}

void InitializedOrrelo::accept(std::string_view name, EventValues&& values) {
  const auto& platform = Platform::current();
  const auto& userId = currentUserId();
  const auto now = platform.clock->now();
  {
    auto& slot = orrelo::slot();
    const std::lock_guard lock(slot.mutex);
    // Made in its place: to make it before the lock and move it in takes a tenth of the call.
    slot.accepted.emplace_back(userId, std::string(name), std::move(values), now);
    if (std::exchange(slot.isScheduled, true)) return;
  }
  platform.workers->post(QualityOfService::utility, &storeAccepted);
}

void InitializedOrrelo::storeAccepted() {
  std::vector<Accepted> accepted;
  while (takeAccepted(accepted)) {
    const auto instance = current();
    for (auto& each : accepted) {
      runGuarded([&] {  // one event that fails must not stop those behind it
        instance->store({Platform::current().random->uuid(), std::move(each.userId),
                         utf8::repaired(each.name), instance->eventMapper.map(each.values), each.time});
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
