#include "events/EventRepository.h"

#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

EventRepositoryImpl::EventRepositoryImpl(EventDao local, EventRemoteDataSource remote,
                                         reactive::SchedulerPtr mainScheduler,
                                         reactive::SchedulerPtr concurrentScheduler,
                                         std::function<Date()> currentDate,
                                         OnNextHandler eventQueueOnNextHandler,
                                         OnErrorHandler eventQueueOnErrorHandler)
    : pipeline_(EventPipeline::create(
          local,
          {.timeSpan = std::chrono::milliseconds(10'000),
           .count = 1,
           .fetchLimit = 1,
           .mainScheduler = std::move(mainScheduler),
           .concurrentScheduler = std::move(concurrentScheduler),
           .currentDate = std::move(currentDate),
           .send =
               [remote = std::move(remote)](const std::vector<Event>& events) {
                 return remote.send(events.front()).map([](const Event&) { return reactive::Unit{}; });
               },
           .remove = [local](const std::vector<Event>& events) { return local.remove(events.front()); },
           .onSent = [handler = std::move(eventQueueOnNextHandler)](
                         const std::vector<Event>& events) { handler(events.front()); },
           .onEnded = std::move(eventQueueOnErrorHandler)})) {}

}  // namespace orrelo
