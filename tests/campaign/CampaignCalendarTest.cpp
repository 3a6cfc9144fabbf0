#include "CampaignReplies.h"
#include "campaign/attendance/CampaignCalendarView.h"
#include "network/RFC3339DateParser.h"
#include "support/TestPlatform.h"

#include <date/date.h>
#include <gmock/gmock.h>
#include <stdlib.h>
#include <time.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

CampaignCalendar calendarOf(const CalendarDate& today, std::vector<CalendarDate> primary = {},
                            std::vector<CalendarDate> secondary = {}) {
  CampaignCalendar calendar;
  calendar.today = today;
  calendar.primaryHighlightDates = std::move(primary);
  calendar.secondaryHighlightDates = std::move(secondary);
  return calendar;
}

class CampaignCalendarTest : public testing::Test {
 protected:
  CampaignCalendarTest() { deviceAt("2026-02-10T03:00:00Z", "Asia/Seoul"); }
  ~CampaignCalendarTest() override {
    kept_ ? setenv("TZ", kept_->c_str(), 1) : unsetenv("TZ");
    tzset();
  }

  void deviceAt(const std::string& time, const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
    platform_.clock->setNow(*RFC3339DateParser::parse(time));
  }
  /// The accessibility label of each cell, and its icon in brackets.
  static std::vector<std::string> cells(const CampaignCalendar& calendar) {
    CampaignCalendarView view;
    view.configure(calendar);
    std::vector<std::string> labels;
    for (const auto& cell : view.state.value().cells) {
      EXPECT_EQ(cell.bottomText, cell.accessibilityLabel.ends_with("오늘") ? "오늘" : "");
      labels.push_back(cell.accessibilityLabel + (cell.hasIcon ? " [" + cell.iconUrl + "]" : ""));
    }
    return labels;
  }
  static int year() { return CampaignCalendar().monthDays(6).front().year; }

  TestPlatform platform_;

 private:
  std::optional<std::string> kept_ =
      getenv("TZ") != nullptr ? std::optional<std::string>(getenv("TZ")) : std::nullopt;
};

TEST(CalendarDateTest, OnlyRealDaysOfExactWidthAreRead) {
  EXPECT_EQ(CalendarDate::parse("2026-11-21"), day(2026, 11, 21));
  EXPECT_EQ(CalendarDate::parse("2024-02-29"), day(2024, 2, 29));
  for (const auto* const text : {"", "--", "2026-13-01", "2026-11-00", "2026-11-31", "2023-02-29",
                                 "1900-02-29", "2026-1-01", "26-11-01", "2026/11/21", "2026-11-21 ",
                                 " 2026-11-21", "2026-11-21T00:00:00", "2026-+1-01", "２０２６-11-21"}) {
    EXPECT_EQ(CalendarDate::parse(text), CalendarDate()) << text;
  }
}

TEST_F(CampaignCalendarTest, EveryMonthIsConsecutiveDaysInWholeWeeksFromASunday) {
  using date::sys_days;
  const auto dayOf = [](const CalendarDate& each) {
    return sys_days(date::year(each.year) / static_cast<int>(each.month) / static_cast<int>(each.day));
  };
  for (int year = 1999; year <= 2032; ++year) {
    deviceAt(std::to_string(year) + "-12-31T14:59:59Z", "Asia/Seoul");
    for (int month = 1; month <= 12; ++month) {
      const CampaignCalendar calendar;
      const auto days = calendar.monthDays(month);
      auto all = calendar.previousMonthTail(month);
      const auto tail = all.size();
      all.insert(all.end(), days.begin(), days.end());
      const auto head = calendar.nextMonthHead(month);
      all.insert(all.end(), head.begin(), head.end());
      SCOPED_TRACE(std::to_string(year) + "-" + std::to_string(month));
      ASSERT_EQ(days.front(), day(year, month, 1));
      EXPECT_LT(tail, 7U);
      EXPECT_LT(head.size(), 7U);
      EXPECT_EQ(all.size() % 7, 0U);
      EXPECT_EQ(date::weekday(dayOf(all.front())), date::Sunday);
      for (std::size_t i = 1; i < all.size(); ++i) {
        ASSERT_EQ(dayOf(all[i]) - dayOf(all[i - 1]), date::days(1));
      }
      EXPECT_EQ(dayOf(days.back()) + date::days(1),
                sys_days((date::year(year) / month + date::months(1)) / 1));
    }
  }
}

TEST_F(CampaignCalendarTest, ADayIsOneOfEightByWhatHolds) {
  auto calendar =
      calendarOf({2026, 2, 3}, {day(2026, 2, 1), day(2026, 2, 5)}, {day(2026, 2, 5), day(2026, 2, 6)});
  calendar.highlightIconUrl = "icon";
  const auto dayCell = [&](int number) { return cells(calendar)[static_cast<std::size_t>(6 + number)]; };
  EXPECT_EQ(dayCell(2), "2일");
  EXPECT_EQ(dayCell(1), "1일, 출석");
  EXPECT_EQ(dayCell(3), "3일, 오늘");
  EXPECT_EQ(dayCell(5), "5일, 보너스, 출석 [icon]");
  EXPECT_EQ(dayCell(6), "6일, 보너스 [icon]");
  calendar.today.day = 1;
  EXPECT_EQ(dayCell(1), "1일, 출석, 오늘");
  calendar.today.day = 5;
  EXPECT_EQ(dayCell(5), "5일, 보너스, 출석, 오늘 [icon]");
  calendar.today.day = 6;
  EXPECT_EQ(dayCell(6), "6일, 보너스, 오늘 [icon]");
  calendar.highlightIconUrl.reset();
  EXPECT_EQ(dayCell(6), "6일, 보너스, 오늘 []");
  EXPECT_EQ(dayCell(5), "5일, 보너스, 출석 []");
}

TEST_F(CampaignCalendarTest, TextsAreLegibleOnTheFillOfTheirCell) {
  auto calendar = calendarOf({2026, 2, 5}, {day(2026, 2, 1), day(2026, 2, 5)}, {day(2026, 2, 5)});
  calendar.primaryColor = Color::fromHex("#4a5df0");
  calendar.secondaryColor = Color::fromHex("#ffe08a");
  calendar.highlightIconUrl = "icon";
  CampaignCalendarView view;
  view.configure(calendar);
  const auto cells = view.state.value().cells;
  EXPECT_EQ(cells[7].backgroundColor, calendar.primaryColor);
  EXPECT_EQ(cells[7].dayColor, (Color{1.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(cells[8].dayColor, plainTextColor);
  EXPECT_EQ(cells[11].backgroundColor, calendar.secondaryColor);
  EXPECT_EQ(cells[11].bottomColor, plainTextColor);
  calendar.secondaryColor = calendar.primaryColor;
  view.configure(calendar);
  EXPECT_EQ(view.state.value().cells[11].bottomColor, (Color{1.0, 1.0, 1.0, 1.0}));
}

TEST_F(CampaignCalendarTest, TheYearIsTheDevicesInItsZoneUpToMidnight) {
  deviceAt("2025-12-31T14:59:59Z", "Asia/Seoul");
  EXPECT_EQ(year(), 2025);
  deviceAt("2025-12-31T15:00:00Z", "Asia/Seoul");
  EXPECT_EQ(year(), 2026);
  deviceAt("2026-01-01T04:59:59Z", "America/New_York");
  EXPECT_EQ(year(), 2025);
  deviceAt("2026-01-01T05:00:00Z", "America/New_York");
  EXPECT_EQ(year(), 2026);
  // Daylight saving time at the turn of the year: +13 instead of +12.
  deviceAt("2025-12-31T11:00:00Z", "Pacific/Auckland");
  EXPECT_EQ(year(), 2026);
  // Daylight saving time skips midnight: the day begins at one o'clock.
  deviceAt("2018-11-04T03:00:00Z", "America/Sao_Paulo");
  EXPECT_EQ(CampaignCalendar().monthDays(11).size(), 30U);
}

TEST_F(CampaignCalendarTest, AnotherYearMeetsNoCell) {
  const auto calendar = calendarOf({2025, 2, 3}, {day(2025, 2, 1)}, {day(2025, 2, 2)});
  const auto grid = cells(calendar);
  EXPECT_EQ(grid.size(), 35U);
  EXPECT_THAT(std::vector(grid.begin() + 7, grid.begin() + 10), ElementsAre("1일", "2일", "3일"));
}

TEST_F(CampaignCalendarTest, ADayThatIsNoneDrawsTheHeadersAlone) {
  for (const int month : {0, -1, 13, 1'000'000}) {
    EXPECT_EQ(cells(calendarOf({2026, month, 1}, {CalendarDate()})).size(), 7U) << month;
  }
}

}  // namespace
}  // namespace orrelo::test
