#include "reactive/Scheduler.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

namespace orrelo::reactive {

SchedulerPtr MainScheduler::instance() {
  return std::make_shared<MainScheduler>(Platform::current().mainLoop);
}

std::chrono::microseconds MainScheduler::now() const {
  return Platform::current().clock->steady();
}

ConcurrentDispatchQueueScheduler::ConcurrentDispatchQueueScheduler(QualityOfService qos)
    : ConcurrentDispatchQueueScheduler(qos, Platform::current().workers) {}

std::chrono::microseconds ConcurrentDispatchQueueScheduler::now() const {
  return Platform::current().clock->steady();
}

}  // namespace orrelo::reactive
