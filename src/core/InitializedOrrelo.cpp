#include "core/InitializedOrrelo.h"

#include "core/base/Utf8.h"
#include "core/model/UserManager.h"
#include "platform/KitThread.h"
#include "platform/Random.h"
#include "platform/WorkerPool.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <atomic>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t keptCapacity = 1024;

struct Slot {
  std::mutex mutex;
  std::shared_ptr<InitializedOrrelo> instance;
  std::atomic<bool> isFilled = false;
};

Slot& slot() {
  static auto* const slot = new Slot;
  return *slot;
}

}  // namespace

std::shared_ptr<InitializedOrrelo> InitializedOrrelo::current() {
  const std::lock_guard lock(slot().mutex);
  return slot().instance;
}

bool InitializedOrrelo::hasCurrent() {
  return slot().isFilled.load(std::memory_order_acquire);
}

void InitializedOrrelo::makeCurrent(std::shared_ptr<InitializedOrrelo> instance) {
  {
    const std::lock_guard lock(slot().mutex);
    std::swap(slot().instance, instance);
    slot().isFilled.store(true, std::memory_order_release);
  }
  // A worker may still hold it, for the events that it accepted.
  if (instance) instance->component->eventComponent().saveEventUseCase.stopSending();
}

void InitializedOrrelo::accept(std::string_view name, EventValues&& values) {
  const auto& platform = Platform::current();
  const auto& userId = currentUserId();
  const auto now = platform.clock->now();
  {
    auto& [mutex, current, isFilled] = slot();
    const std::lock_guard lock(mutex);
    auto& instance = *current;
    instance.accepted_.emplace_back(userId, name, std::move(values), now);
    if (std::exchange(instance.isScheduled_, true)) return;
  }
  platform.workers->post(QualityOfService::utility, &storeAcceptedByCurrent);
}

// Events that a replaced instance had accepted and not yet stored end with it.
void InitializedOrrelo::storeAcceptedByCurrent() {
  current()->storeAccepted();
}

bool InitializedOrrelo::takeAccepted(std::vector<Accepted>& accepted) {
  // Its memory serves the next calls, but for what only a burst needed.
  accepted.clear();
  if (accepted.capacity() > keptCapacity) accepted = {};
  const std::lock_guard lock(slot().mutex);
  std::swap(accepted, accepted_);
  isScheduled_ = !accepted.empty();
  return isScheduled_;
}

void InitializedOrrelo::storeAccepted() {
  std::vector<Accepted> accepted;
  while (takeAccepted(accepted)) {
    for (auto& each : accepted) {
      runGuarded([&] {  // one event that fails must not stop those behind it
        store({Platform::current().random->uuid(), std::move(each.userId), utf8::repaired(each.name),
               eventMapper.map(each.values), each.time});
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
      .disposedBy(disposeBag);
}

}  // namespace orrelo
