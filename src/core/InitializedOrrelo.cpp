#include "core/InitializedOrrelo.h"

#include "platform/WorkerPool.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>

#include <utility>

namespace orrelo {

void InitializedOrrelo::accept(Event event) {
  {
    const std::lock_guard lock(mutex_);
    accepted_.push_back(std::move(event));
    if (std::exchange(isScheduled_, true)) return;
  }
  Platform::current().workers->post(QualityOfService::utility, [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->storeAccepted();
  });
}

void InitializedOrrelo::storeAccepted() {
  while (true) {
    std::vector<Event> events;
    {
      const std::lock_guard lock(mutex_);
      if (accepted_.empty()) {
        isScheduled_ = false;
        return;
      }
      std::swap(events, accepted_);
    }
    for (auto& event : events) {
      component->configComponent()
          .fetchConfigUseCase->fetch()
          .filter([](const Config& config) { return config.sdkEnable; })
          .subscribe([save = component->eventComponent().saveEventUseCase,
                      event = std::move(event)](const Config&) { save.save(event); })
          .disposedBy(disposeBag);
    }
  }
}

}  // namespace orrelo
