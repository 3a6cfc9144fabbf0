#pragma once

#include "platform/WorkerPool.h"
#include "platform/WriterQueue.h"

#include <memory>

namespace orrelo {

/// Tasks one at a time, in the order in which they were posted, on a pool of workers. The queue may go before
/// its tasks have run.
class SerialQueue final : public SerialExecutor {
 public:
  SerialQueue(std::shared_ptr<WorkerPool> workers, QualityOfService qos);

  void post(Task task) override;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
