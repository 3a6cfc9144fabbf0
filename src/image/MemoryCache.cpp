#include "image/MemoryCache.h"

#include <iterator>
#include <utility>

namespace orrelo {

void MemoryCache::insert(const WrappedKey& key, Data value) {
  const std::lock_guard lock(mutex_);
  if (const auto found = backingCache_.find(key); found != backingCache_.end()) drop(found->second);
  if (value->size() + entryCost > budget_) return;
  entries_.push_front({key, std::move(value)});
  backingCache_.emplace(key, entries_.begin());
  used_ += entries_.front().cost();
  while (used_ > budget_) drop(std::prev(entries_.end()));
}

void MemoryCache::remove(const WrappedKey& key) {
  const std::lock_guard lock(mutex_);
  if (const auto found = backingCache_.find(key); found != backingCache_.end()) drop(found->second);
}

void MemoryCache::removeAll() {
  const std::lock_guard lock(mutex_);
  backingCache_.clear();
  entries_.clear();
  used_ = 0;
}

Data MemoryCache::value(const WrappedKey& key) {
  const std::lock_guard lock(mutex_);
  const auto found = backingCache_.find(key);
  if (found == backingCache_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, found->second);
  return found->second->value;
}

bool MemoryCache::contains(const WrappedKey& key) const {
  const std::lock_guard lock(mutex_);
  return backingCache_.contains(key);
}

void MemoryCache::drop(std::list<Entry>::iterator entry) {
  used_ -= entry->cost();
  backingCache_.erase(entry->key);
  entries_.erase(entry);
}

}  // namespace orrelo
