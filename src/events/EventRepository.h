#pragma once

#include "events/EventPipeline.h"
#include "events/EventRemoteDataSource.h"

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

class EventRepository {
 public:
  virtual ~EventRepository() = default;

  /// Returns at once; see EventPipeline::save. Any thread.
  virtual void save(const Event& event, bool mayBeStored, EventPipeline::SaveCompletion completion) = 0;
  /// See EventPipeline::stop. Any thread.
  virtual void stopSending() = 0;
  virtual ORLDiagnostics::Pipeline status() const = 0;
};

/// Sends the host's events, one per request, after each save and every 10 seconds.
class EventRepositoryImpl final : public EventRepository {
 public:
  using OnNextHandler = std::function<void(const Event&)>;
  using OnErrorHandler = std::function<void(const Error&)>;

  EventRepositoryImpl(EventDao local, EventRemoteDataSource remote, reactive::SchedulerPtr mainScheduler,
                      reactive::SchedulerPtr concurrentScheduler, std::function<Date()> currentDate,
                      OnNextHandler eventQueueOnNextHandler, OnErrorHandler eventQueueOnErrorHandler);

  void save(const Event& event, bool mayBeStored, EventPipeline::SaveCompletion completion) override {
    pipeline_->save(event, mayBeStored, std::move(completion));
  }
  void stopSending() override { pipeline_->stop(); }
  ORLDiagnostics::Pipeline status() const override { return pipeline_->status(); }

 private:
  std::shared_ptr<EventPipeline> pipeline_;
};

}  // namespace orrelo
