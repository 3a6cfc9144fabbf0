#include "kit/InitializedOrrelo.h"

#include <mutex>
#include <utility>

namespace orrelo {
namespace {

struct Slot {
  std::mutex mutex;
  std::shared_ptr<InitializedOrrelo> instance;
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

void InitializedOrrelo::makeCurrent(std::shared_ptr<InitializedOrrelo> instance) {
  {
    const std::lock_guard lock(slot().mutex);
    std::swap(slot().instance, instance);
  }
  // Another thread may still hold the former instance.
  if (!instance) return;
  instance->component->eventComponent().saveEventUseCase.stopSending();
  instance->component->pushComponent().orreloPush->stopSending();
}

}  // namespace orrelo
