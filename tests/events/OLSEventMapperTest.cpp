#include "events/EventValueDescription.h"
#include "events/OLSEventMapper.h"

#include <orrelo/UnsupportedEventValueException.h>

#include <cmath>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

StringDictionary map(EventValue value) {
  return OLSEventMapper().map({{"k", std::move(value)}});
}

std::string text(EventValue value) {
  const auto values = map(std::move(value));
  const auto* const found = values.find("k");
  return found == nullptr ? "(missing)" : *found;
}

TEST(OLSEventMapper, PlainValuesGiveTheirText) {
  EXPECT_EQ(text(true), "true");
  EXPECT_EQ(text(INT64_MIN), "-9223372036854775808");
  EXPECT_EQ(text(UINT64_MAX), "18446744073709551615");
  EXPECT_EQ(text("한글 🎁"), "한글 🎁");
  EXPECT_EQ(text(Date::fromSeconds(0)), "1970-01-01 00:00:00 +0000");
  EXPECT_EQ(text(*Uuid::parse("00112233-4455-6677-8899-aabbccddeeff")),
            "00112233-4455-6677-8899-AABBCCDDEEFF");
  EXPECT_EQ(text(*Url::parse("https://a.example/b?c#d")), "https://a.example/b?c#d");
}

TEST(OLSEventMapper, NumbersGiveTheirShortestDecimalsInEveryPlace) {
  const std::vector<std::pair<EventValue, std::string>> numbers{
      {1.0, "1"},
      {-0.0, "-0"},
      {39.9, "39.9"},
      {39.9F, "39.9"},
      {1e5, "100000"},
      {0.00001, "1e-05"},
      {-1234567.5, "-1234567.5"},
      {1e15, "1000000000000000"},
      {1e16, "1e+16"},
      {1.7976931348623157e308, "1.7976931348623157e+308"},
      {9007199254740993.0L, "9007199254740992"}};
  for (const auto& [value, expected] : numbers) {
    EXPECT_EQ(text(value), expected);
    EXPECT_EQ(text(EventArray{value}), "[" + expected + "]");
    EXPECT_EQ(text(EventDictionary{{"n", EventSet{value}.elements}}), "{\"n\":[" + expected + "]}");
    EXPECT_EQ(description(EventArray{value}), "[" + expected + "]");
  }
}

TEST(OLSEventMapper, CollectionsGiveCompactJson) {
  EXPECT_EQ(text(EventArray{}), "[]");
  EXPECT_EQ(text(EventSet{3, 1, 3, 2}), "[3,1,2]");
  EXPECT_EQ(text(EventDictionary{{"b", EventArray{true, nullptr, "x/\"y"}}, {"a", 1.5}}),
            R"({"a":1.5,"b":[true,null,"x/\"y"]})");
}

TEST(OLSEventMapper, AValueWithoutAJsonFormIsLeftOutAlone) {
  EventArray deep;
  for (int i = 0; i < 600; ++i) {
    EventArray outer;
    outer.push_back(std::move(deep));
    deep = std::move(outer);
  }
  for (const auto& value :
       {EventValue(EventArray{Date()}), EventValue(EventArray{Uuid()}), EventValue(EventArray{EventSet{1}}),
        EventValue(EventArray{EventBytes(1)}), EventValue(EventDictionary{{"n", NAN}}),
        EventValue(EventArray{EventArray{EventValue::other(1)}}), EventValue(deep)}) {
    const auto values = OLSEventMapper().map({{"a", 1}, {"bad", value}, {"z", "2"}});
    EXPECT_EQ(values, (StringDictionary{{"a", "1"}, {"z", "2"}}));
  }
}

TEST(OLSEventMapper, UnsupportedTypesAreRefusedByName) {
  struct Basket {};
  const auto refusal = [](EventValue value) -> std::string {
    try {
      map(std::move(value));
    } catch (const UnsupportedEventValueException& exception) {
      return exception.name() + ": " + exception.reason();
    }
    return "taken";
  };
  EXPECT_EQ(refusal(nullptr), "Not supported class: Null is not supported class");
  EXPECT_EQ(refusal(EventBytes(3)), "Not supported class: Bytes is not supported class");
  EXPECT_THAT(refusal(EventValue::other(Basket())), testing::ContainsRegex("Basket is not supported class"));
}

TEST(OLSEventMapper, TextsThatAreNotUtf8AreRepaired) {
  const auto values = OLSEventMapper().map({{"k\xFF", "a\xC3(\xED\xA0\x80z"}, {"l", EventArray{"\x80"}}});
  EXPECT_EQ(values, (StringDictionary{{"k\uFFFD", "a\uFFFD(\uFFFD\uFFFD\uFFFDz"}, {"l", "[\"\uFFFD\"]"}}));
}

}  // namespace
}  // namespace orrelo::test
