#pragma once

#include "reactive/Scheduler.h"

#include <algorithm>
#include <map>

namespace orrelo::test {

/// Time that passes only when a test says so. Tasks run in the order of their due times, those due at one
/// time in the order in which they were scheduled, with the clock at the due time. One thread.
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
  /// What is due now, and what is scheduled for now meanwhile.
  void runDue() { advanceTo(now_); }

  /// For the end of a test that leaves tasks: what waits in them may own the scheduler.
  void dropPending() { std::exchange(tasks_, {}).clear(); }
  std::size_t pendingCount() const { return tasks_.size(); }

 private:
  std::chrono::microseconds now_{};
  std::multimap<std::chrono::microseconds, Task> tasks_;
};

}  // namespace orrelo::test
