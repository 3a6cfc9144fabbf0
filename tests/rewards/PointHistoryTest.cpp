#include "RewardsFixture.h"
#include "model/UserManager.h"
#include "rewards/point/PointRouter.h"
#include "viewkit/legibility.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto nothing = "적립 내역이 없습니다.";

/// The history screen over the scripted network.
class PointHistoryTest : public RewardsFixture {
 protected:
  PointHistoryTest() { pages_ = {row(1) + "," + row(2) + "," + row(3), row(4) + "," + row(5)}; }

  void open() {
    PointRouter(factory_).route(
        host_, [this] { ++callbacks_; }, [this](const Error&) { ++callbacks_; });
    run();
    screen_ =
        std::dynamic_pointer_cast<PointRedemptionHistoryViewController>(host_->presentedViewController());
    ASSERT_TRUE(screen_);
  }
  void run() { platform_.loop->run(); }
  void refresh() {
    screen_->refresh();
    run();
  }
  void display(std::size_t lastRow) {
    screen_->willDisplay(lastRow);
    run();
  }
  void answerHistory(const std::string& rows) {
    platform_.session->answer(ScriptedURLSession::reply(200, "[" + rows + "]"));
    run();
  }
  std::size_t rowCount() const { return screen_->state().rowCount; }
  std::string message() const {
    const auto& error = screen_->errorView->state.value();
    return error.isHidden ? "" : error.text;
  }
  const PointView::State& balance() const { return screen_->pointView->state.value(); }
  PointRedemptionHistoryViewCell cellOf(const std::string& date, std::int64_t amount = 1) const {
    return PointRedemptionHistoryViewCell::of({1, "출석", "매일", date, amount}, "P", TimeZone::utc());
  }

  std::shared_ptr<PointRedemptionHistoryViewControllerFactory> factory_ =
      std::make_shared<PointRedemptionHistoryViewControllerFactoryImpl>(
          FetchPointRedemptionHistoriesUseCase(repository_), fetchPoint_);
  std::shared_ptr<PointRedemptionHistoryViewController> screen_;
  int callbacks_ = 0;
};

TEST_F(PointHistoryTest, TheRouterPresentsTheScreenAndCallsNeitherCallback) {
  open();
  EXPECT_EQ(callbacks_, 0);
  EXPECT_EQ(screen_->title(), "내 히스토리");
  EXPECT_EQ(screen_->modalPresentationStyle, ModalPresentationStyle::fullScreen);
  EXPECT_TRUE(host_->presented().animated);
  PointRouter(factory_).route(nullptr, {}, {});

  const auto requests = platform_.session->requests;
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0].url.text(),
            "https://api.example/sdk/app/pointsystem/point-redemption-history?page=0");
  EXPECT_EQ(requests[1].url.text(), "https://api.example/sdk/app/pointsystem/my-point");
  for (const auto& request : requests) {
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.headers, (HTTPHeaders{{"Kelso-UUID", "u"}, {"buid", "minji"}}));
    EXPECT_FALSE(request.body);
  }
}

TEST_F(PointHistoryTest, EachAppearanceAndEachRefreshAppendsTheNextPage) {
  open();
  EXPECT_THAT(pagesAsked(), ElementsAre("0"));
  EXPECT_EQ(rowCount(), 3U);
  refresh();
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1"));
  EXPECT_EQ(rowCount(), 5U);
  const auto above = std::make_shared<HostViewController>();
  screen_->present(above, false);
  above->dismiss(false);
  run();
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1", "2"));
  EXPECT_EQ(rowCount(), 5U) << "an empty page";
  EXPECT_EQ(message(), "");
  EXPECT_EQ(requestsTo("/my-point").size(), 3U);
}

TEST_F(PointHistoryTest, ThePositionOfTheLastRowLoadsOnce) {
  open();
  display(1);
  EXPECT_THAT(pagesAsked(), ElementsAre("0"));
  display(2);
  display(2);
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1"));
  display(4);
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1", "2")) << "page 2 is empty";
  display(3);
  display(4);
  EXPECT_EQ(pagesAsked().size(), 3U);
  pages_.resize(4, row(6));
  refresh();
  display(5);
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1", "2", "3", "4"));
}

TEST_F(PointHistoryTest, TheLastRowWaitsForARunningLoadAndIsThenDisplayedAgain) {
  open();
  historyWaits_ = true;
  refresh();
  EXPECT_TRUE(screen_->state().isLoading);
  display(2);
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1"));
  answerHistory("");
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1", "2"));
  answerHistory(row(4));
  EXPECT_FALSE(screen_->state().isLoading);
  EXPECT_EQ(pagesAsked().size(), 3U) << "the new last row is not in sight yet";
}

TEST_F(PointHistoryTest, TwoLoadsAtOnceAppendTheSamePageTwice) {
  open();
  historyWaits_ = true;
  screen_->refresh();
  refresh();
  EXPECT_THAT(pagesAsked(), ElementsAre("0", "1", "1"));
  answerHistory(row(4));
  answerHistory(row(4));
  EXPECT_EQ(rowCount(), 5U);
  EXPECT_EQ(screen_->cell(3), screen_->cell(4));
  refresh();
  EXPECT_EQ(pagesAsked().back(), "3");
}

TEST_F(PointHistoryTest, AFailureCoversTheRowsAndTheSamePageIsNext) {
  open();
  for (const auto& [path, reply] :
       {std::pair("/point-redemption-history", ScriptedURLSession::reply(500)),
        std::pair("/point-redemption-history", ScriptedURLSession::reply(200, "{}")),
        std::pair("/my-point", ScriptedURLSession::failure(URLError::timedOut)),
        std::pair("/my-point", ScriptedURLSession::reply(200, "[]"))}) {
    const auto former = std::exchange(replies_[path], reply);
    refresh();
    EXPECT_EQ(message(), "잠시 후 다시 시도해주세요.") << path;
    EXPECT_FALSE(screen_->state().isLoading);
    EXPECT_EQ(rowCount(), 3U);
    EXPECT_EQ(pagesAsked().back(), "1");
    replies_[path] = former;
    if (!former) replies_.erase(path);
  }
  historyWaits_ = true;
  refresh();
  EXPECT_EQ(message(), "") << "every state hides it";
  answerHistory(row(4));
  EXPECT_EQ(rowCount(), 4U);
}

TEST_F(PointHistoryTest, AnEmptyHistorySaysSoUntilRowsCome) {
  pages_ = {"", "", row(1)};
  open();
  EXPECT_EQ(message(), nothing);
  refresh();
  EXPECT_EQ(message(), nothing);
  refresh();
  EXPECT_EQ(message(), "");
  EXPECT_EQ(rowCount(), 1U);
}

TEST_F(PointHistoryTest, NothingLoadsWhileNobodyIsSignedIn) {
  setCurrentUserId(std::nullopt);
  open();
  refresh();
  EXPECT_THAT(platform_.session->requests, IsEmpty());
  EXPECT_FALSE(screen_->state().isLoading);
  EXPECT_EQ(message(), "");
  setCurrentUserId("sora");
  refresh();
  EXPECT_THAT(pagesAsked(), ElementsAre("0"));
  setCurrentUserId(std::nullopt);
  display(2);
  EXPECT_EQ(pagesAsked().size(), 1U);
  setCurrentUserId("sora");
  display(2);
  EXPECT_EQ(pagesAsked().size(), 2U) << "the row was not used up";
}

TEST_F(PointHistoryTest, WithoutThePointSystemTheHistoryStaysAndTheBalanceIsTheDefault) {
  config_->config.plugin.pointSystem = false;
  open();
  EXPECT_EQ(rowCount(), 3U);
  EXPECT_THAT(requestsTo("/my-point"), IsEmpty());
  EXPECT_EQ(balance().myPoint, "내 포인트");
  EXPECT_EQ(balance().pointAmount, "0");
  EXPECT_EQ(balance().pointUnit, "");
  EXPECT_EQ(screen_->cell(0).unit, "");
  EXPECT_EQ(screen_->cell(0).accessibilityLabel, "3.9, 출석, 매일, 10");
}

TEST_F(PointHistoryTest, TheUnitOfTheLatestBalanceIsThatOfAllRows) {
  open();
  EXPECT_EQ(screen_->cell(0).unit, "P");
  replies_["/my-point"] = ScriptedURLSession::reply(200, pointReply(-7, "별"));
  refresh();
  EXPECT_EQ(screen_->cell(0).unit, "별");
  EXPECT_EQ(balance().accessibilityLabel, "포인트, -7 별");
}

TEST_F(PointHistoryTest, ACellShowsItsDateAtOffsetZeroAndItsAmountByItsSign) {
  EXPECT_EQ(cellOf("2024-03-10T01:00:00+09:00").date, "3.9");
  EXPECT_EQ(cellOf("2024-12-31T23:59:59Z").date, "12.31");
  EXPECT_EQ(cellOf("2024-01-02T03:04:05").date, "1.2");
  for (const auto* const date :
       {"", "2024-03-10", "2024-03-10T01:00:00.5Z", "2024-02-30T01:00:00Z", "어제"}) {
    const auto cell = cellOf(date);
    EXPECT_EQ(cell.date, "") << date;
    EXPECT_EQ(cell.accessibilityLabel, "출석, 매일, 1 P");
  }
  EXPECT_EQ(cellOf("", -1).amountColor, (Color{0.071, 0.565, 1.0, 1.0}));
  EXPECT_EQ(cellOf("", 0).amountColor, (Color{1.0, 0.387, 0.387, 1.0}));
  EXPECT_EQ(cellOf("", 1).amountColor, cellOf("", 0).amountColor);
  EXPECT_EQ(cellOf("", std::numeric_limits<std::int64_t>::min()).amount, "-9223372036854775808");
}

TEST_F(PointHistoryTest, TheUnitIsRememberedAndEmptyWithoutThePointSystem) {
  FetchPointUnitUseCaseImpl fetchUnit(config_, repository_);
  std::vector<std::string> units;
  const auto fetch = [&] {
    const auto handle =
        fetchUnit.fetch("minji").subscribe([&](const std::string& unit) { units.push_back(unit); });
    run();
    handle.dispose();
  };
  fetch();
  fetch();
  EXPECT_THAT(units, ElementsAre("P", "P"));
  EXPECT_EQ(requestsTo("/my-point").size(), 1U);
  config_->config.plugin.pointSystem = false;
  fetch();
  EXPECT_EQ(units.back(), "");
  EXPECT_EQ(units.size(), 3U);
}

}  // namespace
}  // namespace orrelo::test
