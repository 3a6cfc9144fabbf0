#pragma once

#include "image/Data.h"
#include "image/RecentlyUsed.h"
#include "image/WrappedKey.h"

#include <cstddef>
#include <utility>

namespace orrelo {

/// A least-recently-used cache of encoded bytes in memory, of at most `budget` bytes. Data larger than the
/// budget is not stored. Any thread.
class MemoryCache {
 public:
  static constexpr std::size_t defaultBudget = std::size_t{32} * 1024 * 1024;
  /// The overhead of an entry that counts against the budget, in bytes.
  static constexpr std::size_t entryCost = 256;

  explicit MemoryCache(std::size_t budget = defaultBudget) : entries_(budget) {}

  void insert(const WrappedKey& key, Data value) {
    const auto cost = value->size() + entryCost;
    entries_.insert(key, std::move(value), cost);
  }
  void remove(const WrappedKey& key) { entries_.remove(key); }
  void removeAll() { entries_.removeAll(); }
  /// The data of the key; null if there is none.
  Data value(const WrappedKey& key) { return entries_.value(key); }
  bool contains(const WrappedKey& key) const { return entries_.contains(key); }
  /// The bytes of all entries.
  std::size_t used() const { return entries_.used(); }

 private:
  RecentlyUsed<WrappedKey, Data> entries_;
};

}  // namespace orrelo
