#pragma once

#include "platform/WorkerPool.h"

#include <orrelo/MainLoop.h>

#include <chrono>
#include <functional>
#include <memory>

namespace orrelo::reactive {

/// Where and when work runs. What is scheduled cannot be taken back: whoever schedules checks, when it runs,
/// whether it is still wanted.
class Scheduler {
 public:
  using Task = std::function<void()>;

  virtual ~Scheduler() = default;

  /// Time since some fixed moment; it never goes back.
  virtual std::chrono::microseconds now() const = 0;
  /// Runs `task` soon, never before returning.
  virtual void schedule(Task task) = 0;
  virtual void scheduleAfter(std::chrono::microseconds delay, Task task) = 0;
};

using SchedulerPtr = std::shared_ptr<Scheduler>;

/// The main thread.
class MainScheduler final : public Scheduler {
 public:
  /// On the installed platform's main loop.
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

/// The worker pool, at one class of urgency. Two tasks may run at once.
class ConcurrentDispatchQueueScheduler final : public Scheduler {
 public:
  /// On the installed platform's pool.
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
