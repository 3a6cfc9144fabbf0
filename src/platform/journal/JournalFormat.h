#pragma once

#include "platform/journal/SequenceRanges.h"

#include <orrelo/platform/EventJournal.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// The bytes of a journal: a header of the file, then records, each with a header in front of its content.
/// Numbers have the machine's byte order, since a journal never leaves it. Each file has a random seed, which
/// enters the sum of each record, so that bytes of another file or of a host's value never pass for a record.
namespace journal {

constexpr std::uint32_t currentVersion = 1;

struct FileHeader {
  std::uint64_t magic;
  std::uint32_t version;
  std::uint32_t sum;
  std::uint64_t seed;
};

enum class RecordKind : std::uint32_t {
  event = 1,
  /// The content is pairs of the first and the last sequence number of released records.
  released = 2,
};

struct RecordHeader {
  /// Found by a reader that has lost its place.
  std::uint32_t marker;
  /// The size of the content in bytes.
  std::uint32_t length;
  std::uint64_t sequence;
  RecordKind kind;
  /// CRC-32C of the seed, the fields above and the content.
  std::uint32_t sum;
};
static_assert(sizeof(RecordHeader) == EventJournal::headerSize);

std::uint32_t marker(std::uint64_t seed);

std::string fileHeader(std::uint64_t seed);
/// nullopt if `bytes` does not begin with a whole header of any version.
std::optional<FileHeader> readFileHeader(std::string_view bytes);

/// Writes the header into the first `headerSize` bytes of the record at `record`.
void seal(char* record, std::size_t size, std::uint64_t seed, std::uint64_t sequence, RecordKind kind);
/// The header at the start of `bytes`, which must hold one. Its fields are not checked.
RecordHeader readRecordHeader(std::string_view bytes);
/// Whether `record`, a header and its content, has the right sum.
bool hasRightSum(std::string_view record, std::uint64_t seed);

/// Sealed records that release `numbers`; empty if there are none.
std::string releaseRecords(const SequenceRanges& numbers, std::uint64_t seed);

/// The name of the journal with `seed`, and the one that it has while it is made.
std::string fileName(std::uint64_t seed);
std::string temporaryName(std::uint64_t seed);
/// The seed in a name; nullopt if it is not the name of a journal.
std::optional<std::uint64_t> seedOfName(std::string_view name);
bool isTemporaryName(std::string_view name);

}  // namespace journal
}  // namespace orrelo
