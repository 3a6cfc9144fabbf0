#pragma once

#include "platform/store/WriterQueue.h"

#include <orrelo/platform/WorkerPool.h>

#include <chrono>
#include <memory>

namespace orrelo {

/// Runs tasks on a worker pool, one at a time, in the order in which they were posted. The queue may be
/// destroyed before its tasks have run.
class SerialQueue final : public SerialExecutor {
 public:
  SerialQueue(std::shared_ptr<WorkerPool> workers, QualityOfService qos);

  void post(Task task) override;
  /// Runs the queued tasks on the calling thread until `timeout` has passed; a task that has started
  /// completes. Waits at most as long for a task that a worker is running.
  void finish(std::chrono::milliseconds timeout);

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
