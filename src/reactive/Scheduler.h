#pragma once

#include <orrelo/MainLoop.h>
#include <orrelo/platform/WorkerPool.h>

#include <chrono>
#include <functional>
#include <memory>

namespace orrelo::reactive {

/// Runs tasks on certain threads at certain times. Scheduled tasks cannot be cancelled: a task must check
/// itself whether it is still needed.
class Scheduler {
 public:
  using Task = std::function<void()>;

  virtual ~Scheduler() = default;

  /// Monotonic time since an arbitrary fixed moment.
  virtual std::chrono::microseconds now() const = 0;
  /// Queues `task`. Never runs it before returning.
  virtual void schedule(Task task) = 0;
  virtual void scheduleAfter(std::chrono::microseconds delay, Task task) = 0;
};

using SchedulerPtr = std::shared_ptr<Scheduler>;

/// Runs tasks on the main thread.
class MainScheduler final : public Scheduler {
 public:
  /// Uses the installed platform's main loop.
  static SchedulerPtr instance();

  explicit MainScheduler(std::shared_ptr<MainLoop> mainLoop) : mainLoop_(std::move(mainLoop)) {}

  std::chrono::microseconds now() const override;
  void schedule(Task task) override { mainLoop_->post(std::move(task)); }
  void scheduleAfter(std::chrono::microseconds delay, Task task) override {
    mainLoop_->postAfter(delay, std::move(task));
  }

 private:
  std::shared_ptr<MainLoop> mainLoop_;
};

/// Runs tasks on the worker pool with one priority. Tasks may run concurrently.
class ConcurrentDispatchQueueScheduler final : public Scheduler {
 public:
  /// Uses the installed platform's pool.
  explicit ConcurrentDispatchQueueScheduler(QualityOfService qos);
  ConcurrentDispatchQueueScheduler(QualityOfService qos, std::shared_ptr<WorkerPool> workers)
      : qos_(qos), workers_(std::move(workers)) {}

  std::chrono::microseconds now() const override;
  void schedule(Task task) override { workers_->post(qos_, std::move(task)); }
  void scheduleAfter(std::chrono::microseconds delay, Task task) override {
    workers_->postAfter(qos_, delay, std::move(task));
  }

 private:
  QualityOfService qos_;
  std::shared_ptr<WorkerPool> workers_;
};

}  // namespace orrelo::reactive
