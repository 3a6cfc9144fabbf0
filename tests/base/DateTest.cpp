#include "base/DateFormat.h"
#include "network/RFC3339DateParser.h"

#include <gtest/gtest.h>
#include <optional>
#include <stdlib.h>
#include <string>
#include <time.h>
#include <vector>

namespace orrelo::test {
namespace {

using std::chrono::hours;
using std::chrono::microseconds;

// 2022-01-02T03:04:05Z
constexpr auto moment = Date::fromSeconds(1'641'092'645);

/// The date as text; "" when none was read.
std::string read(const std::optional<Date>& date) {
  return date ? RFC3339DateParser::text(*date) : "";
}

TEST(DateFormatTest, WritesFieldsLiteralsAndOffsets) {
  const auto date = moment + microseconds(678'901);
  EXPECT_EQ(formatDate(date, "yyyy-MM-dd HH:mm:ss.SSSSSSZ", hours(9)), "2022-01-02 12:04:05.678901+0900");
  EXPECT_EQ(formatDate(date, "yyyy'y'MM'''Md'ZZZ", -std::chrono::minutes(210)), "2022y01Md-0330");
  EXPECT_EQ(RFC3339DateParser::text(date), "2022-01-02T03:04:05");
  EXPECT_EQ(RFC3339DateParser::text(Date(microseconds(-1))), "1969-12-31T23:59:59");  // truncates downwards
}

TEST(DateFormatTest, ReadsRealDatesOfExactWidthOnly) {
  constexpr auto format = RFC3339DateParser::format;
  EXPECT_EQ(parseDate("2022-01-02T03:04:05", format), moment);
  EXPECT_EQ(parseDate("2022-01-02T03:04:05", format, hours(9)), moment - hours(9));
  EXPECT_EQ(parseDate("2022-01-02 03:04:05.678901", "yyyy-MM-dd HH:mm:ss.SSSSSS"),
            moment + microseconds(678'901));
  EXPECT_TRUE(parseDate("2024-02-29T00:00:00", format));
  for (const std::string_view text :
       {"2023-02-29T00:00:00", "1900-02-29T00:00:00", "2022-13-01T00:00:00", "2022-01-00T00:00:00",
        "2022-04-31T00:00:00", "2022-01-02T24:00:00", "2022-01-02T03:04:60", "2022-1-02T03:04:05",
        "02022-01-02T03:04:05", "2022-01-02t03:04:05", "2022-01-02T03:04:05 ", "2022-01-02T03:04:+5",
        "2022-01-02", ""}) {
    EXPECT_FALSE(parseDate(text, format)) << text;
  }
}

TEST(RFC3339DateParserTest, ReadsSecondsWithAZoneOrWithout) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"2022-01-02T03:04:05", "2022-01-02T03:04:05"},
      {"2022-01-02T03:04:05Z", "2022-01-02T03:04:05"},
      {"2022-01-02t03:04:05z", "2022-01-02T03:04:05"},
      {"2022-01-02T03:04:05+09:00", "2022-01-01T18:04:05"},
      {"2022-01-02T03:04:05+0900", "2022-01-01T18:04:05"},
      {"2022-01-02T03:04:05-03:30", "2022-01-02T06:34:05"},
      {"2022-01-02T03:04:05.123Z", ""},
      {"2022-01-02T03:04:05+09", ""},
      {"2022-01-02T03:04:05+24:00", ""},
      {"2022-01-02T03:04:05+09:60", ""},
      {"2022-01-02T03:04:05Z포", ""},
      {"포포포포포포포포포포포포포포포포포포포포포:::", ""},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(read(RFC3339DateParser::parse(text)), expected) << text;
  }
}

TEST(RFC3339DateParserTest, SecondsMayBeFollowedByAnything) {
  for (const std::string text : {"2022-01-02T03:04:05", "2022-01-02T03:04:05.123Z",
                                 "2022-01-02T03:04:05+09:00", "2022-01-02T03:04:05포"}) {
    EXPECT_EQ(RFC3339DateParser::parseSeconds(text), moment) << text;
  }
  EXPECT_EQ(RFC3339DateParser::parseSeconds("2022-01-02t03:04:05z"), moment);  // as `parse` reads it
  EXPECT_FALSE(RFC3339DateParser::parseSeconds("2022-13-02T03:04:05"));
  EXPECT_FALSE(RFC3339DateParser::parseSeconds("포포포포포포포포포포포포포포포포포포포"));
}

TEST(RFC3339DateParserDeathTest, FewerThanNineteenCharactersStopTheProcess) {
  EXPECT_DEATH(RFC3339DateParser::parseSeconds("2022-01-02T03:04:0"), "fewer than 19 characters");
  EXPECT_DEATH(RFC3339DateParser::parseSeconds("포포포포포포포"), "fewer than 19 characters");  // 21 bytes
}

std::string dayIn(Date date, const TimeZone& zone) {
  return std::to_string(RFC3339DateParser::year(date, zone)) + "-" +
         std::to_string(RFC3339DateParser::month(date, zone)) + "-" +
         std::to_string(RFC3339DateParser::day(date, zone));
}

TEST(TimeZoneTest, TheDayIsTheZones) {
  const auto newYearsEve = *RFC3339DateParser::parse("2021-12-31T15:00:00Z");
  EXPECT_EQ(dayIn(newYearsEve, TimeZone::utc()), "2021-12-31");
  EXPECT_EQ(dayIn(newYearsEve, TimeZone::named("Asia/Seoul")), "2022-1-1");
  EXPECT_EQ(dayIn(newYearsEve - microseconds(1), TimeZone::named("Asia/Seoul")), "2021-12-31");
  EXPECT_EQ(dayIn(newYearsEve, TimeZone::named("Nowhere/Land")), "2021-12-31");

  const auto newYork = TimeZone::named("America/New_York");
  EXPECT_EQ(newYork.offset(*RFC3339DateParser::parse("2022-03-13T06:59:59Z")), hours(-5));
  EXPECT_EQ(newYork.offset(*RFC3339DateParser::parse("2022-03-13T07:00:00Z")), hours(-4));
}

TEST(TimeZoneTest, TheCurrentZoneIsTheEnvironments) {
  const char* const before = getenv("TZ");
  const auto kept = before != nullptr ? std::optional<std::string>(before) : std::nullopt;
  const auto moved = [](const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
    return TimeZone::current();
  };
  const auto seoul = moved("Asia/Seoul");
  EXPECT_EQ(seoul.identifier(), "Asia/Seoul");
  EXPECT_EQ(dayIn(*RFC3339DateParser::parse("2021-12-31T15:00:00Z"), seoul), "2022-1-1");
  EXPECT_EQ(moved(":America/New_York").identifier(), "America/New_York");
  EXPECT_EQ(TimeZone::current().offset(moment), hours(-5));
  EXPECT_EQ(TimeZone::current().offset(*RFC3339DateParser::parse("2050-07-01T00:00:00Z")), hours(-4));
  for (const auto* const path : {":/usr/share/zoneinfo/Asia/Seoul", "/usr/share/zoneinfo/posix/Asia/Seoul"}) {
    EXPECT_EQ(moved(path).identifier(), "Asia/Seoul") << path;
  }
  unsetenv("TZ");
  const auto systemZone = TimeZone::current().identifier();
  for (const auto* const rule : {"KST-9", "<+09>-9", "../../../etc/hostname", ""}) {
    EXPECT_EQ(moved(rule).identifier(), systemZone) << rule;
  }
  EXPECT_EQ(moved("KST-9").offset(moment), hours(9));
  if (kept) {
    moved(kept->c_str());
  } else {
    unsetenv("TZ");
    tzset();
  }
}

}  // namespace
}  // namespace orrelo::test
