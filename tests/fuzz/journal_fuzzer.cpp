// Takes the input as a journal, then as one whose sums are right, which no mutation finds. Each record that
// is read must stand in the input with its right sum, in ascending order and once; each byte is read at most
// once.
#include "events/EventRecord.h"
#include "platform/journal/JournalFormat.h"
#include "platform/journal/JournalReader.h"
#include "require.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo::test {
namespace {

constexpr std::uint64_t seedOfName = 0x0123'4567'89AB'CDEF;

void replay(std::string_view bytes) {
  std::size_t got = 0;
  const auto source = [&](std::size_t offset, char* to, std::size_t size) {
    require(offset == got, "a byte is read once");
    const auto count = bytes.copy(to, size, offset);
    got += count;
    return std::optional(count);
  };
  const auto content = readJournal(source, bytes.size(), seedOfName);
  require(content.has_value(), "the source does not fail");
  require(content->unreadableSize <= bytes.size(), "what is left out is a part of the file");
  require(!content->isLaterVersion || content->live.empty(), "a later version is not read");
  const JournalContent::Entry* last = nullptr;
  for (const auto& entry : content->live) {
    const auto record = entry.record.view();
    require(record.size() >= EventJournal::headerSize && record.size() <= EventJournal::maximumRecordSize,
            "a record's size");
    const auto header = journal::readRecordHeader(record);
    require(header.length == record.size() - EventJournal::headerSize && header.sequence == entry.sequence &&
                header.kind == journal::RecordKind::event,
            "a record's header");
    require(journal::hasRightSum(record, content->seed), "a record's sum");
    static_cast<void>(EventRecord::decode(record));
    require(bytes.find(record) != std::string_view::npos, "a record stands in the file");
    require(last == nullptr || last->sequence < entry.sequence, "the records ascend");
    last = &entry;
  }
}

/// Seals what begins with a marker and has a length that fits.
std::string withRightSums(std::string_view input) {
  const auto marker = journal::marker(seedOfName);
  const std::string_view wanted(reinterpret_cast<const char*>(&marker), sizeof(marker));
  auto bytes = journal::fileHeader(seedOfName).append(input);
  for (std::size_t at = 0; (at = bytes.find(wanted, at)) != std::string::npos;) {
    if (bytes.size() - at < EventJournal::headerSize) break;
    const auto header = journal::readRecordHeader(std::string_view(bytes).substr(at));
    auto record = bytes.substr(at, EventJournal::headerSize + header.length);
    if (record.size() < EventJournal::headerSize + header.length) {
      ++at;
      continue;
    }
    journal::seal(record.data(), record.size(), seedOfName, header.sequence, header.kind);
    bytes.replace(at, record.size(), record);
    at += record.size();
  }
  return bytes;
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  orrelo::test::replay(bytes);
  orrelo::test::replay(orrelo::test::withRightSums(bytes));
  return 0;
}
