#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>
#include <vector>

namespace orrelo {

/// Tasks ordered by due time; tasks with the same due time keep their order of insertion. Not thread-safe.
template <class Task>
class DelayedTasks {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// The time after `delay`, limited so that it does not overflow.
  static Time after(std::chrono::microseconds delay) {
    constexpr std::chrono::hours maximumDelay{24 * 365 * 100};
    return std::chrono::steady_clock::now() + std::min<std::chrono::microseconds>(delay, maximumDelay);
  }

  bool empty() const { return heap_.empty(); }
  Time firstDue() const { return heap_.front().due; }

  /// Adds a task. True if it is now the first one due.
  bool add(Time due, Task task) {
    heap_.push_back({due, added_++, std::move(task)});
    std::push_heap(heap_.begin(), heap_.end());
    return heap_.front().number == added_ - 1;
  }

  /// Removes the tasks that are due and passes each to `take`.
  template <class Take>
  void takeDue(const Take& take) {
    if (heap_.empty()) return;
    const auto now = std::chrono::steady_clock::now();
    while (!heap_.empty() && heap_.front().due <= now) {
      std::pop_heap(heap_.begin(), heap_.end());
      take(std::move(heap_.back().task));
      heap_.pop_back();
    }
  }

 private:
  struct Entry {
    Time due;
    std::uint64_t number;
    Task task;

    /// Reversed, so that the first task due is on top of the heap.
    friend bool operator<(const Entry& a, const Entry& b) {
      return a.due != b.due ? a.due > b.due : a.number > b.number;
    }
  };

  std::vector<Entry> heap_;
  std::uint64_t added_ = 0;
};

}  // namespace orrelo
