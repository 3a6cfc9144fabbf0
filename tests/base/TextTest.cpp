#include "base/Utf8.h"

#include <orrelo/Uuid.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

TEST(UuidTest, ReadsOneFormInEitherCaseAndWritesUpperCase) {
  const std::string upper = "123E4567-E89B-12D3-A456-426614174000";
  ASSERT_TRUE(Uuid::parse(upper));
  EXPECT_EQ(Uuid::parse(upper)->text(), upper);
  EXPECT_EQ(Uuid::parse("123e4567-e89b-12d3-a456-426614174000"), Uuid::parse(upper));
  for (const std::string text :
       {"", "123E4567E89B12D3A456426614174000", "123E4567-E89B-12D3-A456-42661417400",
        "123E4567-E89B-12D3-A456-4266141740000", "123E4567-E89B-12D3-A456-42661417400G",
        "123E4567-E89B-12D3-A45-6426614174000"}) {
    EXPECT_FALSE(Uuid::parse(text)) << text;
  }
}

TEST(UuidTest, RandomBytesBecomeAVersion4Identifier) {
  Uuid::Bytes random;
  random.fill(0xFF);
  EXPECT_EQ(Uuid::fromRandom(random).text(), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
  random.fill(0x00);
  EXPECT_EQ(Uuid::fromRandom(random).text(), "00000000-0000-4000-8000-000000000000");
}

TEST(Utf8Test, RepairsWhatIsMalformedAndNothingElse) {
  const std::string mark = "\xEF\xBF\xBD";
  const std::vector<std::pair<std::string, std::string>> cases{
      {"", ""},
      {"plain 포인트 😀", "plain 포인트 😀"},
      {std::string("a\0b", 3), std::string("a\0b", 3)},
      {"a\xFF"
       "b",
       "a" + mark + "b"},
      {"\x80", mark},
      {"\xC3", mark},                                   // cut off
      {"\xC0\xAF", mark + mark},                        // overlong
      {"\xED\xA0\x80", mark + mark + mark},             // a surrogate
      {"\xF4\x90\x80\x80", mark + mark + mark + mark},  // beyond U+10FFFF
      {"\xE3\x81x", mark + mark + "x"},
      {"\xF0\x9F\x98\x80\xF0\x9F", "😀" + mark + mark},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(utf8::repaired(text), expected);
    EXPECT_EQ(utf8::isValid(text), text == expected);
    EXPECT_TRUE(utf8::isValid(utf8::repaired(text)));
  }
  EXPECT_EQ(utf8::length("a포😀"), 3U);
}

TEST(Utf8Test, CountsWhatAReaderSeesAsOneCharacter) {
  const std::vector<std::pair<std::string, std::size_t>> cases{
      {"", 0},
      {"a포😀", 3},
      {"\r\n\r\n\u0300", 3},  // the end of a line takes no mark
      {"e\u0301\u0323o", 2},
      {"\u1100\u1161\u11A8\u1100\u1161", 2},  // syllables in parts
      {"각\u11A8가\u11A8\u1161", 3},          // a surplus part counts as a character
      {"👨‍👩‍👧‍👦👩🏽‍🚀❤️‍🔥", 3},
      {"👍🏽a\u200D👍", 3},  // a joiner joins only pictures
      {"👍\u200D\u200D👍", 2},       // and only one joiner
      {"🇰🇷🇺🇸🇯", 3},
      {"1️⃣🏴\U000E0067\U000E0062\U000E007F", 2},
      {"நி", 1},                             // a mark that has a width of its own
      {"\u0600\u0661\u0600\U0001F1F0🇷", 2},  // prepended signs
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(utf8::graphemeCount(text), expected) << text;
}

}  // namespace
}  // namespace orrelo::test
