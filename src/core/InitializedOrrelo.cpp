#include "core/InitializedOrrelo.h"

#include "core/base/Utf8.h"
#include "core/model/UserManager.h"
#include "platform/Clock.h"
#include "platform/KitThread.h"
#include "platform/Random.h"
#include "platform/WorkerPool.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>

#include <utility>

namespace orrelo {

void InitializedOrrelo::accept(std::string name, EventValues values) {
  const auto& platform = Platform::current();
  Accepted accepted{currentUserId(), std::move(name), std::move(values), platform.clock->now()};
  {
    const std::lock_guard lock(mutex_);
    accepted_.push_back(std::move(accepted));
    if (std::exchange(isScheduled_, true)) return;
  }
  platform.workers->post(QualityOfService::utility, [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->storeAccepted();
  });
}

void InitializedOrrelo::storeAccepted() {
  std::vector<Accepted> accepted;
  while (true) {
    accepted.clear();  // its memory serves the next calls
    {
      const std::lock_guard lock(mutex_);
      if (accepted_.empty()) {
        isScheduled_ = false;
        return;
      }
      std::swap(accepted, accepted_);
    }
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
