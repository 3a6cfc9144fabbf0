#pragma once

#include "reactive/Scheduler.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace orrelo::test {

/// Runs due tasks on three threads. Tasks may own it, so a test that shares it must call `stop`.
class PoolScheduler final : public reactive::Scheduler {
  using Clock = std::chrono::steady_clock;

 public:
  PoolScheduler() {
    for (int i = 0; i < 3; ++i) threads_.emplace_back([this] { run(); });
  }
  ~PoolScheduler() override { stop(); }

  std::chrono::microseconds now() const override {
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now().time_since_epoch());
  }
  void schedule(Task task) override { scheduleAfter({}, std::move(task)); }
  void scheduleAfter(std::chrono::microseconds delay, Task task) override {
    {
      const std::lock_guard lock(mutex_);
      if (stopped_) return;
      tasks_.emplace(Clock::now() + delay, std::move(task));
    }
    changed_.notify_one();
  }

  /// Waits for the running tasks and drops the others.
  void stop() {
    std::multimap<Clock::time_point, Task> dropped;
    {
      const std::lock_guard lock(mutex_);
      stopped_ = true;
      std::swap(dropped, tasks_);
    }
    changed_.notify_all();
    threads_.clear();
  }

 private:
  void run() {
    std::unique_lock lock(mutex_);
    while (!stopped_) {
      if (tasks_.empty()) {
        changed_.wait(lock);
      } else if (const auto due = tasks_.begin()->first; due > Clock::now()) {
        changed_.wait_until(lock, due);
      } else {
        auto task = tasks_.extract(tasks_.begin());
        lock.unlock();
        task.mapped()();
        task = {};
        lock.lock();
      }
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  bool stopped_ = false;
  std::multimap<Clock::time_point, Task> tasks_;
  std::vector<std::jthread> threads_;
};

}  // namespace orrelo::test
