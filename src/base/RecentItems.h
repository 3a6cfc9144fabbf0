#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

namespace orrelo {

/// Keeps the last `maximumCount` items. Any thread.
template <class T>
class RecentItems {
 public:
  explicit RecentItems(std::size_t maximumCount) : maximumCount_(maximumCount) {}

  void add(T item) {
    const std::lock_guard lock(mutex_);
    items_.push_back(std::move(item));
    if (items_.size() > maximumCount_) items_.pop_front();
  }

  /// The last item is at the end.
  std::vector<T> items() const {
    const std::lock_guard lock(mutex_);
    return {items_.begin(), items_.end()};
  }

 private:
  const std::size_t maximumCount_;
  mutable std::mutex mutex_;
  std::deque<T> items_;
};

}  // namespace orrelo
