#pragma once

#include "reactive/Scheduler.h"

#include <algorithm>
#include <map>

namespace orrelo::test {

/// A scheduler whose time only a test advances. Tasks run by due time, those with the same due time in the
/// order of scheduling, with the clock at their due time. One thread.
class VirtualTimeScheduler final : public reactive::Scheduler {
 public:
  std::chrono::microseconds now() const override { return now_; }
  void schedule(Task task) override { scheduleAfter({}, std::move(task)); }
  void scheduleAfter(std::chrono::microseconds delay, Task task) override {
    tasks_.emplace(now_ + std::max(delay, std::chrono::microseconds{}), std::move(task));
  }

  void advanceBy(std::chrono::microseconds duration) { advanceTo(now_ + duration); }
  void advanceTo(std::chrono::microseconds time) {
    while (!tasks_.empty() && tasks_.begin()->first <= time) {
      auto task = tasks_.extract(tasks_.begin());
      now_ = task.key();
      task.mapped()();
    }
    now_ = std::max(now_, time);
  }
  /// Runs the tasks that are due now, and those that they schedule for now.
  void runDue() { advanceTo(now_); }

  /// Drops the waiting tasks, which may own the scheduler; called at the end of a test that leaves some.
  void dropPending() { std::exchange(tasks_, {}).clear(); }
  std::size_t pendingCount() const { return tasks_.size(); }

 private:
  std::chrono::microseconds now_{};
  std::multimap<std::chrono::microseconds, Task> tasks_;
};

}  // namespace orrelo::test
