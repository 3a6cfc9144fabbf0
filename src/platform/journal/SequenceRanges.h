#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

namespace orrelo {

/// A set of sequence numbers, kept as ranges. Not thread-safe.
class SequenceRanges {
 public:
  /// Adds the numbers from `first` to `last`; none if `last` is smaller.
  void add(std::uint64_t first, std::uint64_t last);
  bool contains(std::uint64_t number) const;
  void clear() { lastOfFirst_.clear(); }

  /// The last number of each range by its first one.
  const std::map<std::uint64_t, std::uint64_t>& ranges() const { return lastOfFirst_; }

 private:
  std::map<std::uint64_t, std::uint64_t> lastOfFirst_;
};

}  // namespace orrelo
