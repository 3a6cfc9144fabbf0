#include "platform/journal/JournalFormat.h"

#include "platform/journal/Crc32c.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>

namespace orrelo::journal {
namespace {

constexpr std::uint64_t magic = 0x314A'4F4C'4552'524F;
constexpr std::string_view namePrefix = "events-";
constexpr std::string_view nameSuffix = ".journal";
constexpr std::string_view temporarySuffix = ".new";
constexpr std::size_t seedDigits = 16;

template <class T>
std::string_view bytesOf(const T& value) {
  return {reinterpret_cast<const char*>(&value), sizeof(value)};
}

std::uint32_t sumOf(const FileHeader& header) {
  return crc32c(bytesOf(header.seed), crc32c(bytesOf(header).substr(0, offsetof(FileHeader, sum))));
}

std::uint32_t sumOf(const RecordHeader& header, std::string_view content, std::uint64_t seed) {
  const auto fields = bytesOf(header).substr(0, offsetof(RecordHeader, sum));
  return crc32c(content, crc32c(fields, crc32c(bytesOf(seed))));
}

}  // namespace

std::uint32_t marker(std::uint64_t seed) {
  const auto folded = static_cast<std::uint32_t>((seed * 0x9E37'79B9'7F4A'7C15) >> 32);
  return folded != 0 ? folded : 1;  // zeros fill the holes of a file
}

std::string fileHeader(std::uint64_t seed) {
  FileHeader header{.magic = magic, .version = currentVersion, .sum = 0, .seed = seed};
  header.sum = sumOf(header);
  return std::string(bytesOf(header));
}

std::optional<FileHeader> readFileHeader(std::string_view bytes) {
  FileHeader header{};
  if (bytes.size() < sizeof(header)) return std::nullopt;
  std::memcpy(&header, bytes.data(), sizeof(header));
  if (header.magic != magic || header.version < currentVersion) return std::nullopt;
  // A later version may have another sum.
  if (header.version == currentVersion && header.sum != sumOf(header)) return std::nullopt;
  return header;
}

void seal(char* record, std::size_t size, std::uint64_t seed, std::uint64_t sequence, RecordKind kind) {
  const std::string_view content(record + EventJournal::headerSize, size - EventJournal::headerSize);
  RecordHeader header{.marker = marker(seed),
                      .length = static_cast<std::uint32_t>(content.size()),
                      .sequence = sequence,
                      .kind = kind,
                      .sum = 0};
  header.sum = sumOf(header, content, seed);
  std::memcpy(record, &header, sizeof(header));
}

RecordHeader readRecordHeader(std::string_view bytes) {
  RecordHeader header{};
  std::memcpy(&header, bytes.data(), sizeof(header));
  return header;
}

bool hasRightSum(std::string_view record, std::uint64_t seed) {
  const auto header = readRecordHeader(record);
  return header.sum == sumOf(header, record.substr(EventJournal::headerSize), seed);
}

std::string releaseRecords(const SequenceRanges& numbers, std::uint64_t seed) {
  constexpr std::size_t maximumPairs = 4096;
  std::string records;
  std::string record;
  std::size_t pairs = 0;
  const auto finish = [&] {
    seal(record.data(), record.size(), seed, 0, RecordKind::released);
    records += record;
    pairs = 0;
  };
  for (const auto& [first, last] : numbers.ranges()) {
    if (pairs == 0) record.assign(EventJournal::headerSize, '\0');
    record.append(bytesOf(first)).append(bytesOf(last));
    if (++pairs == maximumPairs) finish();
  }
  if (pairs > 0) finish();
  return records;
}

std::string fileName(std::uint64_t seed) {
  std::string digits(seedDigits, '0');
  for (std::size_t i = 0; i < seedDigits; ++i) {
    digits[seedDigits - 1 - i] = "0123456789abcdef"[(seed >> (4 * i)) & 0xF];
  }
  return std::string(namePrefix).append(digits).append(nameSuffix);
}

std::string temporaryName(std::uint64_t seed) {
  return fileName(seed).append(temporarySuffix);
}

std::optional<std::uint64_t> seedOfName(std::string_view name) {
  if (!name.starts_with(namePrefix)) return std::nullopt;
  const auto digits = name.substr(namePrefix.size()).substr(0, seedDigits);
  std::uint64_t seed = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), seed, 16);
  if (fileName(seed) != name) return std::nullopt;
  return seed;
}

bool isTemporaryName(std::string_view name) {
  return name.ends_with(temporarySuffix) && seedOfName(name.substr(0, name.size() - temporarySuffix.size()));
}

}  // namespace orrelo::journal
