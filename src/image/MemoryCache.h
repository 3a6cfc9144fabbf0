#pragma once

#include "image/Data.h"
#include "image/WrappedKey.h"

#include <cstddef>
#include <list>
#include <mutex>
#include <unordered_map>

namespace orrelo {

/// A least-recently-used cache of encoded bytes in memory, of at most `budget` bytes. Data larger than the
/// budget is not stored. Any thread.
class MemoryCache {
 public:
  static constexpr std::size_t defaultBudget = std::size_t{32} * 1024 * 1024;
  /// The overhead of an entry that counts against the budget, in bytes.
  static constexpr std::size_t entryCost = 256;

  explicit MemoryCache(std::size_t budget = defaultBudget) : budget_(budget) {}

  void insert(const WrappedKey& key, Data value);
  void remove(const WrappedKey& key);
  void removeAll();
  /// The data of the key; null if there is none.
  Data value(const WrappedKey& key);
  bool contains(const WrappedKey& key) const;
  /// The bytes of all entries.
  std::size_t used() const {
    const std::lock_guard lock(mutex_);
    return used_;
  }

 private:
  struct Entry {
    WrappedKey key;
    Data value;
    std::size_t cost() const { return value->size() + entryCost; }
  };

  void drop(std::list<Entry>::iterator entry);

  const std::size_t budget_;
  mutable std::mutex mutex_;
  std::size_t used_ = 0;
  /// The most recently used entry comes first.
  std::list<Entry> entries_;
  std::unordered_map<WrappedKey, std::list<Entry>::iterator> backingCache_;
};

}  // namespace orrelo
