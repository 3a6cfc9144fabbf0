#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orrelo {

/// A dictionary of texts, stored as a sorted array in one allocation. An event has only a few values, which
/// are written once and read once.
class StringDictionary {
 public:
  using Entry = std::pair<std::string, std::string>;

  StringDictionary() = default;
  StringDictionary(std::initializer_list<Entry> entries) {
    for (const auto& [key, value] : entries) set(key, value);
  }

  /// Adds the entry or replaces the value of an existing key.
  void set(std::string key, std::string value) {
    const auto place = lowerBound(key);
    if (place != entries_.end() && place->first == key) {
      place->second = std::move(value);
    } else {
      entries_.emplace(place, std::move(key), std::move(value));
    }
  }

  /// The value of the key; null if it is absent.
  const std::string* find(std::string_view key) const {
    const auto place = const_cast<StringDictionary*>(this)->lowerBound(key);
    return place != entries_.end() && place->first == key ? &place->second : nullptr;
  }

  void reserve(std::size_t count) { entries_.reserve(count); }
  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

  friend bool operator==(const StringDictionary&, const StringDictionary&) = default;

 private:
  std::vector<Entry>::iterator lowerBound(std::string_view key) {
    // Keys are usually added in ascending order.
    if (entries_.empty() || entries_.back().first < key) return entries_.end();
    return std::lower_bound(entries_.begin(), entries_.end(), key,
                            [](const Entry& entry, std::string_view wanted) { return entry.first < wanted; });
  }

  std::vector<Entry> entries_;
};

}  // namespace orrelo
