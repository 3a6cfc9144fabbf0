#include "base/Error.h"
#include "base/Json.h"
#include "base/JsonWriter.h"
#include "base/jsonPointer.h"
#include "support/ServiceReplies.h"

#include <cfloat>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

/// The case of the error that `body` throws; "" when it throws none.
template <class Body>
std::string caseOf(Body body) {
  try {
    body();
  } catch (const Error& error) {
    return error.domain() == "DecodingError" ? error.caseName() : error.description();
  }
  return "";
}

std::string parseCase(std::string_view json) {
  return caseOf([&] { JsonParser().parse(json); });
}

std::string nested(std::size_t depth, const std::string& core = "") {
  return std::string(depth, '[') + core + std::string(depth, ']');
}

TEST(JsonPointerTest, IsThePlaceOfAValueInItsDocument) {
  JsonParser parser;
  const auto root = parser.parse(R"({"a":[],"b":{"c/~":[{"x":1},[2,{"y":{}}]]},"z":{"y":1}})");
  EXPECT_EQ(jsonPointer(root), "");
  const auto list = root.objectValue().object("b").find("c/~");
  EXPECT_EQ(jsonPointer(*list), "/b/c~1~0");
  std::vector<std::string> places;
  const auto keep = [&](std::string_view, const JsonValue& value) { places.push_back(jsonPointer(value)); };
  list->arrayValue().forEach([&](const JsonValue& row) {
    if (row.asObject()) return row.objectValue().forEach(keep);
    row.arrayValue().forEach([&](const JsonValue& element) { keep("", element); });
  });
  root.objectValue().object("z").forEach(keep);
  const std::vector<std::string> expected{"/b/c~1~0/0/x", "/b/c~1~0/1/0", "/b/c~1~0/1/1", "/z/y"};
  EXPECT_EQ(places, expected);
}

TEST(JsonTest, FieldsHaveExactlyTheirTypes) {
  JsonParser parser;
  const auto json = parser
                        .parse(R"({"t":"é\u00e9","b":true,"i":-7,"whole":1.0,"half":1.5,"null":null,
      "max":9223372036854775807,"over":9223372036854775808,"huge":1e19,"o":{"k":1},"a":[1,2],
      "twice":1,"twice":2})")
                        .objectValue();
  EXPECT_EQ(json.text("t"), "éé");
  EXPECT_TRUE(json.boolean("b"));
  EXPECT_EQ(json.integer("i"), -7);
  EXPECT_EQ(json.integer("whole"), 1);
  EXPECT_EQ(json.integer("max"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(json.object("o").integer("k"), 1);
  EXPECT_EQ(json.array("a").size(), 2U);
  EXPECT_EQ(json.integer("twice"), 1);
  EXPECT_DOUBLE_EQ(*json.find("half")->asNumber(), 1.5);
  EXPECT_FALSE(json.optionalText("null"));
  EXPECT_FALSE(json.optionalText("absent"));

  for (const auto* const key : {"b", "t", "half", "over", "huge", "o", "a"}) {
    EXPECT_EQ(caseOf([&] { json.integer(key); }), "typeMismatch") << key;
  }
  EXPECT_FALSE(json.find("b")->asNumber());
  EXPECT_EQ(caseOf([&] { json.boolean("i"); }), "typeMismatch");
  EXPECT_EQ(caseOf([&] { json.text("i"); }), "typeMismatch");
  EXPECT_EQ(caseOf([&] { json.optionalText("i"); }), "typeMismatch");
  EXPECT_EQ(caseOf([&] { json.object("a"); }), "typeMismatch");
  EXPECT_EQ(caseOf([&] { json.array("o"); }), "typeMismatch");
  EXPECT_EQ(caseOf([&] { json.text("null"); }), "valueNotFound");
  EXPECT_EQ(caseOf([&] { json.text("absent"); }), "keyNotFound");
}

TEST(JsonTest, AnIntegerOfMoreThan64BitsIsANumberButNoInteger) {
  JsonParser parser;
  const auto json =
      parser
          .parse(R"({"t":"\"18446744073709551616","max":9223372036854775807,"a\\":18446744073709551616,
      "b":-9223372036854775809,"c":12345678901234567890123456789012345678901234567890})")
          .objectValue();
  EXPECT_EQ(json.text("t"), "\"18446744073709551616");
  EXPECT_EQ(json.integer("max"), std::numeric_limits<std::int64_t>::max());
  for (const auto& [key, number] :
       {std::pair("a\\", 0x1p64), std::pair("b", -0x1p63), std::pair("c", 12345678901234567890e30)}) {
    EXPECT_EQ(caseOf([&, &key = key] { json.integer(key); }), "typeMismatch") << key;
    EXPECT_DOUBLE_EQ(json.find(key)->asNumber().value_or(0), number) << key;
  }
  EXPECT_EQ(parseCase("18446744073709551616"), "");
  for (const auto* const bytes : {"[18446744073709551616,01]", "018446744073709551616",
                                  "18446744073709551616-", "1e400", "[18446744073709551616,\"\\"}) {
    EXPECT_EQ(parseCase(bytes), "dataCorrupted") << bytes;
  }
}

TEST(JsonTest, NestsTo512LevelsAndNoDeeper) {
  EXPECT_EQ(parseCase(nested(512, "1")), "");
  for (const std::size_t depth : {513U, 10'000U, 1'000'000U}) {
    EXPECT_EQ(parseCase(nested(depth, "1")), "dataCorrupted") << depth;
    EXPECT_EQ(parseCase(std::string(depth, '[')), "dataCorrupted") << depth;
  }
}

TEST(JsonTest, TakesEightMebibytesAndNoMore) {
  const auto ofSize = [](std::size_t size) { return '"' + std::string(size - 2, 'x') + '"'; };
  EXPECT_EQ(parseCase(ofSize(JsonParser::maximumSize)), "");
  EXPECT_EQ(parseCase(ofSize(JsonParser::maximumSize + 1)), "dataCorrupted");
}

TEST(JsonTest, RefusesWhatIsNoDocument) {
  for (const std::string_view bytes : {"", "nul", "{a:1}", "[1,]", "01", "NaN", "1 2", "{} x", "\"\n\"",
                                       "\"\\ud800\"", "\"\xC3\"", "\"\xED\xA0\x80\"", "{\"\xFF\":1}"}) {
    EXPECT_EQ(parseCase(bytes), "dataCorrupted") << bytes;
  }
  const auto whole = configReply();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    // A separate copy, so that the address sanitizer finds a read past the end.
    const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    EXPECT_EQ(parseCase({cut.data(), cut.size()}), "dataCorrupted") << length;
  }
}

TEST(JsonTest, AParserServesManyDocuments) {
  JsonParser parser;
  const auto big = R"({"k":")" + std::string(100'000, 'y') + R"("})";
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(parser.parse(R"({"k":"small"})").objectValue().text("k"), "small");
    EXPECT_EQ(caseOf([&] { parser.parse(R"({"k":)"); }), "dataCorrupted");
    EXPECT_EQ(parser.parse(big).objectValue().text("k").size(), 100'000U);
    EXPECT_EQ(caseOf([&] { parser.parse(nested(600)); }), "dataCorrupted");
  }
}

TEST(JsonWriterTest, EscapesNoMoreThanItMust) {
  JsonWriter json;
  json.text(std::string("\"\\/\b\f\n\r\t\x01\x1F\0\x7F포😀", 19));
  EXPECT_EQ(json.result(), "\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\\u0000\x7F포😀\"");
  JsonParser parser;
  EXPECT_EQ(parser.parse(json.result()).asText(), std::string("\"\\/\b\f\n\r\t\x01\x1F\0\x7F포😀", 19));
}

std::string sample(JsonWriter::Style style) {
  JsonWriter json(style);
  json.beginObject().field("z", "1").key("a").beginArray();
  json.integer(std::numeric_limits<std::int64_t>::min()).boolean(true).null().beginObject().endObject();
  json.endArray().key("e").beginArray().endArray().key("d").dictionary({{"b", "2"}, {"a", "1"}}).endObject();
  return std::move(json).result();
}

TEST(JsonWriterTest, KeepsTheOrderGivenCompactOrPretty) {
  EXPECT_EQ(sample(JsonWriter::Style::compact),
            R"({"z":"1","a":[-9223372036854775808,true,null,{}],"e":[],"d":{"a":"1","b":"2"}})");
  EXPECT_EQ(sample(JsonWriter::Style::pretty), R"({
  "z" : "1",
  "a" : [
    -9223372036854775808,
    true,
    null,
    {}
  ],
  "e" : [],
  "d" : {
    "a" : "1",
    "b" : "2"
  }
})");
}

TEST(JsonWriterTest, WritesTheShortestNumberThatReadsBack) {
  for (const auto& [number, text] : std::vector<std::pair<double, std::string>>{
           {0.1, "0.1"}, {1.0, "1"}, {-2.5, "-2.5"}, {1e300, "1e+300"}, {5e-324, "5e-324"}}) {
    EXPECT_EQ(JsonWriter().number(number).result(), text);
  }
  JsonParser parser;
  for (const double number : {0.1 + 0.2, DBL_MAX, DBL_MIN, 1.0 / 3, 123456789012345680.0}) {
    EXPECT_EQ(parser.parse(JsonWriter().number(number).result()).asNumber(), number);
  }
}

}  // namespace
}  // namespace orrelo::test
