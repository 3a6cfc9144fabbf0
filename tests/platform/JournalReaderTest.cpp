#include "platform/journal/Crc32c.h"
#include "platform/journal/JournalFormat.h"
#include "platform/journal/JournalReader.h"
#include "platform/journal/SequenceRanges.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Pair;
using Strings = std::vector<std::string>;

constexpr std::uint64_t seed = 0x0123'4567'89AB'CDEF;

std::string sealedRecord(std::uint64_t sequence, const std::string& content, std::uint64_t sealSeed = seed) {
  auto record = std::string(EventJournal::headerSize, '-') + content;
  journal::seal(record.data(), record.size(), sealSeed, sequence, journal::RecordKind::event);
  return record;
}

std::string releaseOf(std::uint64_t first, std::uint64_t last) {
  SequenceRanges numbers;
  numbers.add(first, last);
  return journal::releaseRecords(numbers, seed);
}

JournalContent contentOf(const std::string& bytes) {
  std::size_t got = 0;
  const auto source = [&](std::size_t offset, char* to, std::size_t size) {
    EXPECT_EQ(offset, got) << "each byte is read once";
    const auto count = std::min({size, bytes.size() - offset, std::size_t{5000}});
    bytes.copy(to, count, offset);
    got += count;
    return std::optional(count);
  };
  return readJournal(source, bytes.size(), seed).value();
}

Strings liveIn(const JournalContent& content) {
  Strings live;
  for (const auto& entry : content.live)
    live.emplace_back(entry.record.view().substr(EventJournal::headerSize));
  return live;
}

TEST(Crc32cTest, isTheSameWithAndWithoutTheProcessorsInstruction) {
  EXPECT_EQ(crc32c("123456789"), 0xE3069283U);
  std::string bytes(70, '\0');
  std::iota(bytes.begin(), bytes.end(), '\x30');
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    const auto piece = std::string_view(bytes).substr(0, size);
    EXPECT_EQ(crc32c(piece), portableCrc32c(piece));
    EXPECT_EQ(crc32c(piece), crc32c(piece.substr(size / 3), crc32c(piece.substr(0, size / 3))));
  }
}

TEST(SequenceRangesTest, joinsNeighbours) {
  constexpr auto most = std::numeric_limits<std::uint64_t>::max();
  SequenceRanges numbers;
  for (const auto& [first, last] : std::vector<std::pair<std::uint64_t, std::uint64_t>>{
           {5, 5}, {7, 9}, {6, 6}, {0, 0}, {20, 30}, {19, 40}, {25, 26}, {most, most}, {3, 1}}) {
    numbers.add(first, last);
  }
  EXPECT_THAT(numbers.ranges(), ElementsAre(Pair(0, 0), Pair(5, 9), Pair(19, 40), Pair(most, most)));
  EXPECT_TRUE(numbers.contains(5) && numbers.contains(9) && numbers.contains(0) && numbers.contains(most));
  EXPECT_FALSE(numbers.contains(4) || numbers.contains(10) || numbers.contains(1));
  numbers.add(0, most);
  EXPECT_THAT(numbers.ranges(), ElementsAre(Pair(0, most)));
}

TEST(JournalNameTest, holdsTheSeed) {
  EXPECT_EQ(journal::fileName(seed), "events-0123456789abcdef.journal");
  EXPECT_EQ(journal::seedOfName(journal::fileName(seed)), seed);
  EXPECT_TRUE(journal::isTemporaryName(journal::temporaryName(seed)));
  for (const char* name :
       {"events-0123456789ABCDEF.journal", "events-.journal", "events-0123456789abcdef.journal2",
        "events-0123456789abcdef.journal.new", "events.sqlite", ""}) {
    EXPECT_FALSE(journal::seedOfName(name)) << name;
  }
}

const std::string a = sealedRecord(1, "first");
const std::string b = sealedRecord(2, std::string(70'000, 'b'));
const std::string c = sealedRecord(3, "");
const std::string d = sealedRecord(9, "last");
const std::string opening = journal::fileHeader(seed);
const Strings allFour{"first", std::string(70'000, 'b'), "", "last"};

// A folder's journals may be read by a build for another machine.
TEST(JournalFormatTest, isTheSameOnEveryMachine) {
  using namespace std::string_literals;
  EXPECT_EQ(opening, "ORRELOJ1\1\0\0\0\xA5\xF7\xE0\xEA\xEF\xCD\xAB\x89\x67\x45\x23\1"s);
  EXPECT_EQ(a,
            "\xB7\xA7\x93\x0C\5\0\0\0\1\0\0\0\0\0\0\0\1\0\0\0\xE8\2\x48\x73"
            "first"s);
}

std::string with(std::string bytes, std::size_t at, char value) {
  bytes.at(at) = value;
  return bytes;
}

TEST(JournalReaderTest, keepsWhatHasARightSum) {
  const auto markerBytes = a.substr(0, 4);
  const auto tooLong = with(a, 7, '\x7F');
  const std::string noise = "noise" + markerBytes + std::string(100, '\0') + markerBytes;
  struct Case {
    const char* name;
    std::string bytes;
    Strings live;
    std::size_t unreadable;
  };
  const std::vector<Case> cases{
      {"empty", "", {}, 0},
      {"header alone", opening, {}, 0},
      {"whole", opening + a + b + c + d, allFour, 0},
      {"doubled", opening + a + b + c + d + opening + a + b + c + d, allFour, opening.size()},
      {"in another order", opening + d + b + a + c, allFour, 0},
      {"noise around", opening + noise + a + noise + b + c + d + noise, allFour, 3 * noise.size()},
      {"noise in place of the header", std::string(500, 'x') + a + b + c + d, allFour, 500},
      {"damaged header", with(opening, 3, 'x') + a + b + c + d, allFour, opening.size()},
      {"a record's value changed", opening + a + with(b, 60'000, 'x') + c, {"first", ""}, b.size()},
      {"a length too large", opening + tooLong + c + d, {"", "last"}, a.size()},
      {"a torn record", opening + a + b.substr(0, 66'000) + c + d, {"first", "", "last"}, 66'000},
      {"another file's record", opening + sealedRecord(4, "old", seed + 1) + d, {"last"}, 27},
      {"a record as a value",
       opening + sealedRecord(4, sealedRecord(5, "inner", seed + 1)),
       {sealedRecord(5, "inner", seed + 1)},
       0},
      {"released", opening + a + b + releaseOf(2, 3) + c + d, {"first", "last"}, 0},
      {"released and doubled", opening + a + b + releaseOf(1, 2) + a + d, {"last"}, 0},
      {"all released",
       opening + a + b + c + d + releaseOf(0, std::numeric_limits<std::uint64_t>::max()),
       {},
       0}};
  for (const auto& each : cases) {
    const auto content = contentOf(each.bytes);
    EXPECT_EQ(liveIn(content), each.live) << each.name;
    EXPECT_EQ(content.unreadableSize, each.unreadable) << each.name;
    EXPECT_FALSE(content.isLaterVersion);
  }
  EXPECT_TRUE(contentOf(with(opening, 8, '\2') + a).isLaterVersion);
}

TEST(JournalReaderTest, keepsTheOtherRecordsIfItIsCutOrChangedAnywhere) {
  const auto bytes = opening + a + c + d;
  const Strings contents{"first", "", "last"};
  const std::vector<std::size_t> ends{opening.size() + a.size(), opening.size() + a.size() + c.size(),
                                      bytes.size()};
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    const auto whole = std::count_if(ends.begin(), ends.end(), [&](auto end) { return end <= cut; });
    const Strings expected(contents.begin(), contents.begin() + whole);
    EXPECT_EQ(liveIn(contentOf(bytes.substr(0, cut))), expected) << cut;
  }
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    auto expected = contents;
    if (at >= opening.size()) {
      expected.erase(expected.begin() + (std::upper_bound(ends.begin(), ends.end(), at) - ends.begin()));
    }
    const auto changed = with(bytes, at, static_cast<char>(~bytes[at]));
    const auto content = contentOf(changed);
    const bool changesVersion = at >= 8 && at < 12;
    EXPECT_EQ(content.isLaterVersion, changesVersion) << at;
    EXPECT_EQ(liveIn(content), changesVersion ? Strings{} : expected) << at;
  }
}

// Without a bound it sums up 256 KiB at each of a million places, which takes minutes.
TEST(JournalReaderTest, givesUpOnAFileFullOfMarkers) {
  auto header = sealedRecord(1, std::string(EventJournal::maximumRecordSize - EventJournal::headerSize, 'x'));
  header.resize(8);
  auto bytes = opening;
  while (bytes.size() < std::size_t{8} * 1024 * 1024) bytes += header;
  const auto content = contentOf(bytes);
  EXPECT_TRUE(content.live.empty());
  EXPECT_EQ(content.unreadableSize, bytes.size() - opening.size());
}

TEST(JournalReaderTest, failsIfTheSourceDoes) {
  const auto bytes = opening + a + b + d;
  for (const std::size_t failing : {0U, 1U, 2U}) {
    std::size_t calls = 0;
    const auto source = [&](std::size_t offset, char* to, std::size_t size) -> std::optional<std::size_t> {
      if (calls++ == failing) return std::nullopt;
      return bytes.copy(to, std::min<std::size_t>(size, 30'000), offset);
    };
    EXPECT_FALSE(readJournal(source, bytes.size(), seed)) << failing;
  }
}

}  // namespace
}  // namespace orrelo::test
