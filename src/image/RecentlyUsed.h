#pragma once

#include <cstddef>
#include <list>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace orrelo {

/// Keeps the values that were used last, as long as their costs together are within a budget. A value is a
/// pointer; null means that there is none. Values are destroyed outside the lock. Any thread.
template <class Key, class Value>
class RecentlyUsed {
 public:
  explicit RecentlyUsed(std::size_t budget) : budget_(budget) {}

  /// Replaces the value of the key. A value that costs more than the budget is not kept.
  void insert(const Key& key, Value value, std::size_t cost) {
    Entries dropped;
    const std::lock_guard lock(mutex_);
    if (const auto found = byKey_.find(key); found != byKey_.end()) drop(found->second, dropped);
    if (cost > budget_) return;
    entries_.push_front({key, std::move(value), cost});
    byKey_.emplace(key, entries_.begin());
    used_ += cost;
    while (used_ > budget_) drop(std::prev(entries_.end()), dropped);
  }
  void remove(const Key& key) {
    Entries dropped;
    const std::lock_guard lock(mutex_);
    if (const auto found = byKey_.find(key); found != byKey_.end()) drop(found->second, dropped);
  }
  void removeAll() {
    Entries dropped;
    const std::lock_guard lock(mutex_);
    byKey_.clear();
    dropped.swap(entries_);
    used_ = 0;
  }

  /// Returns the value of the key, which thereby is the one used last.
  Value value(const Key& key) {
    const std::lock_guard lock(mutex_);
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return found->second->value;
  }
  bool contains(const Key& key) const {
    const std::lock_guard lock(mutex_);
    return byKey_.contains(key);
  }
  /// The cost of all values.
  std::size_t used() const {
    const std::lock_guard lock(mutex_);
    return used_;
  }

 private:
  struct Entry {
    Key key;
    Value value;
    std::size_t cost;
  };
  using Entries = std::list<Entry>;

  void drop(typename Entries::iterator entry, Entries& dropped) {
    used_ -= entry->cost;
    byKey_.erase(entry->key);
    dropped.splice(dropped.end(), entries_, entry);
  }

  const std::size_t budget_;
  mutable std::mutex mutex_;
  std::size_t used_ = 0;
  /// The value used last comes first.
  Entries entries_;
  std::unordered_map<Key, typename Entries::iterator> byKey_;
};

}  // namespace orrelo
