#pragma once

#include <orrelo/platform/WorkerPool.h>

#include <memory>

namespace orrelo {

/// A pool of at most four threads, and two more for decoding, which are started on demand, but not by posts
/// of the stores' thread. Tasks that have not started when the process begins to exit are not run.
class PosixWorkerPool final : public WorkerPool {
 public:
  PosixWorkerPool();
  /// Waits for the running tasks and drops the queued ones.
  ~PosixWorkerPool() override;

  void post(QualityOfService qos, Task task) override;
  void postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) override;
  void postDecoding(Task task) override;

 private:
  struct Threads;
  const std::shared_ptr<Threads> workers_;
  const std::shared_ptr<Threads> decoders_;
};

}  // namespace orrelo
