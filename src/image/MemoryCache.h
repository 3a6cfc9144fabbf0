#pragma once

#include "image/Data.h"
#include "image/WrappedKey.h"

#include <cstddef>
#include <list>
#include <mutex>
#include <unordered_map>

namespace orrelo {

/// Encoded bytes in memory, at most `budget` bytes of them: what was longest not asked for goes first. What
/// is larger than the budget is not kept. Any thread.
class MemoryCache {
 public:
  static constexpr std::size_t defaultBudget = std::size_t{32} * 1024 * 1024;
  /// What an entry counts beside its bytes.
  static constexpr std::size_t entryCost = 256;

  explicit MemoryCache(std::size_t budget = defaultBudget) : budget_(budget) {}

  void insert(const WrappedKey& key, Data value);
  void remove(const WrappedKey& key);
  void removeAll();
  /// Null where there is none.
  Data value(const WrappedKey& key);
  bool contains(const WrappedKey& key) const;

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
  /// The latest use first.
  std::list<Entry> entries_;
  std::unordered_map<WrappedKey, std::list<Entry>::iterator> backingCache_;
};

}  // namespace orrelo
