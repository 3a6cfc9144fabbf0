#include "platform/journal/SequenceRanges.h"

#include <algorithm>
#include <iterator>

namespace orrelo {

void SequenceRanges::add(std::uint64_t first, std::uint64_t last) {
  if (last < first) return;
  auto next = lastOfFirst_.upper_bound(first);
  if (next != lastOfFirst_.begin()) {
    const auto before = std::prev(next);
    // Numbers of 64 bits: `last + 1` could overflow, `first - 1` cannot, since a smaller one exists.
    if (before->second >= first - 1 || before->first == first) {
      first = before->first;
      last = std::max(last, before->second);
      next = lastOfFirst_.erase(before);
    }
  }
  while (next != lastOfFirst_.end() && next->first - 1 <= last) {
    last = std::max(last, next->second);
    next = lastOfFirst_.erase(next);
  }
  lastOfFirst_.emplace_hint(next, first, last);
}

bool SequenceRanges::contains(std::uint64_t number) const {
  const auto next = lastOfFirst_.upper_bound(number);
  return next != lastOfFirst_.begin() && std::prev(next)->second >= number;
}

}  // namespace orrelo
