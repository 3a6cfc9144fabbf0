#include "events/BIEventRepository.h"

#include "base/Logger.h"
#include "reactive/Observable.h"

#include <utility>

namespace orrelo {

BIEventRepositoryImpl::BIEventRepositoryImpl(EventDao local, BIEventRemoteDataSource remote,
                                             reactive::SchedulerPtr mainScheduler,
                                             reactive::SchedulerPtr concurrentScheduler,
                                             std::function<Date()> currentDate)
    : pipeline_(EventPipeline::create(
          local, {.timeSpan = std::chrono::milliseconds(30'000),
                  .count = 30,
                  .fetchLimit = 900,
                  .mainScheduler = std::move(mainScheduler),
                  .concurrentScheduler = std::move(concurrentScheduler),
                  .currentDate = std::move(currentDate),
                  .send = [remote = std::move(remote)](
                              const std::vector<Event>& events) { return remote.send(events); },
                  .remove = [local](const std::vector<Event>& events) { return local.remove(events); },
                  .onSent = [](const std::vector<Event>&) { log(LogLevel::DEBUG, "BI Logging Succeed"); },
                  .onEnded =
                      [](const Error& error) {
                        log(LogLevel::ERROR,
                            [&] { return "BI Logging Failed " + error.localizedDescription(); });
                      }})) {}

}  // namespace orrelo
