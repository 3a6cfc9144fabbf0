#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>
#include <vector>

namespace orrelo {

/// Tasks by the time at which they are due, and of one due time in the order in which they were added.
/// Unlocked.
template <class Task>
class DelayedTasks {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// The time after `delay`, however long that is.
  static Time after(std::chrono::microseconds delay) {
    constexpr std::chrono::hours longest{24 * 365 * 100};
    return std::chrono::steady_clock::now() + std::min<std::chrono::microseconds>(delay, longest);
  }

  bool empty() const { return heap_.empty(); }
  Time firstDue() const { return heap_.front().due; }

  /// Whether the task is now the first one due.
  bool add(Time due, Task task) {
    heap_.push_back({due, added_++, std::move(task)});
    std::push_heap(heap_.begin(), heap_.end());
    return heap_.front().number == added_ - 1;
  }

  /// Hands over what is due by now.
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

    /// Puts the first due on top of the heap.
    friend bool operator<(const Entry& a, const Entry& b) {
      return a.due != b.due ? a.due > b.due : a.number > b.number;
    }
  };

  std::vector<Entry> heap_;
  std::uint64_t added_ = 0;
};

}  // namespace orrelo
