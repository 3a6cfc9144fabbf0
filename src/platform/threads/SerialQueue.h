#pragma once

#include "platform/WorkerPool.h"
#include "platform/store/WriterQueue.h"

#include <chrono>
#include <memory>

namespace orrelo {

/// Tasks one at a time, in the order in which they were posted, on a pool of workers. The queue may go before
/// its tasks have run.
class SerialQueue final : public SerialExecutor {
 public:
  SerialQueue(std::shared_ptr<WorkerPool> workers, QualityOfService qos);

  void post(Task task) override;
  /// Runs what waits, on the caller's thread, for as long as there is time for another task. Waits no longer
  /// than that for the one that a worker runs.
  void finish(std::chrono::milliseconds timeout);

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
