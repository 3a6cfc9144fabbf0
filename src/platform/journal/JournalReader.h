#pragma once

#include <orrelo/platform/EventJournal.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace orrelo {

/// The records that a journal holds, as far as it can be read.
struct JournalContent {
  struct Entry {
    std::uint64_t sequence;
    EventJournal::Record record;
  };

  /// The seed of the file's records.
  std::uint64_t seed = 0;
  /// Written by a later version of the kit; nothing else was read.
  bool isLaterVersion = false;
  /// The records that are not released, in the order of their sequence numbers.
  std::vector<Entry> live;
  /// The number of bytes that belong to no record with a right sum.
  std::size_t unreadableSize = 0;
};

/// Reads the bytes of a file from `offset` on into `to`, at most `size` of them. Returns their number, 0 at
/// the end; nullopt if the file cannot be read.
using JournalSource =
    std::function<std::optional<std::size_t>(std::size_t offset, char* to, std::size_t size)>;

/// Reads a journal of `size` bytes, whatever they are, in a time that grows with `size` alone. `seedOfName`
/// is used if the file's header is damaged. nullopt if the source fails.
std::optional<JournalContent> readJournal(const JournalSource& source, std::size_t size,
                                          std::uint64_t seedOfName);

}  // namespace orrelo
