#pragma once

#include "events/BIEventRemoteDataSource.h"
#include "events/EventPipeline.h"

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

class BIEventRepository {
 public:
  virtual ~BIEventRepository() = default;

  /// Returns at once; see EventPipeline::save. Any thread.
  virtual void save(const BIEvent& event, bool mayBeStored, EventPipeline::SaveCompletion completion) = 0;
  /// See EventPipeline::stop. Any thread.
  virtual void stopSending() = 0;
  virtual ORLDiagnostics::Pipeline status() const = 0;
};

/// Sends the kit's own events, up to 900 per request, after every 30 saves and every 30 seconds.
class BIEventRepositoryImpl final : public BIEventRepository {
 public:
  BIEventRepositoryImpl(EventDao local, BIEventRemoteDataSource remote, reactive::SchedulerPtr mainScheduler,
                        reactive::SchedulerPtr concurrentScheduler, std::function<Date()> currentDate);

  void save(const BIEvent& event, bool mayBeStored, EventPipeline::SaveCompletion completion) override {
    pipeline_->save(event, mayBeStored, std::move(completion));
  }
  void stopSending() override { pipeline_->stop(); }
  ORLDiagnostics::Pipeline status() const override { return pipeline_->status(); }

 private:
  std::shared_ptr<EventPipeline> pipeline_;
};

}  // namespace orrelo
