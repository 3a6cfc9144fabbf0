#pragma once

#include "platform/WorkerPool.h"

#include <memory>

namespace orrelo {

/// At most four threads, started as work comes in. What has not begun when the process begins to exit is not
/// run.
class PosixWorkerPool final : public WorkerPool {
 public:
  PosixWorkerPool();
  /// Waits for the tasks that run; those that wait are dropped.
  ~PosixWorkerPool() override;

  void post(QualityOfService qos, Task task) override;
  void postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) override;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
