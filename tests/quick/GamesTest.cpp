#include "QuickTest.h"

#include <QQuickPaintedItem>
#include <QSignalSpy>
#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace orrelo::test {
namespace {

const QString spinButton = QStringLiteral("돌리기");

/// A page with a wheel in this state and a button.
std::string wheelPage(const std::string& progress) {
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
      "toolbar":{"text":"행운의 룰렛"},"component_order":["roulette","action"]}},"blank":[24,24],
    "roulette":[{"progress":)" +
         progress + R"(,"items_v2":[{"reward_type":"쿠폰","reward_text":"커피 ☕"},
      {"reward_type":"","reward_text":"다음 기회에"},{"reward_type":"포인트","reward_text":"1,000P"},
      {"reward_type":"기프티콘","reward_text":"아이스크림"},{"reward_type":"포인트","reward_text":"100P"},
      {"reward_type":"","reward_text":"다음 기회에"}],"primary_color":"#5B50E8","secondary_color":"#E5E3FF"}],
    "action":[{"button_text":"돌리기","status_message":"오늘 한 번 남았어요","button_enable":true,
      "button_url":"/spin","button_color":"#5B50E8"}]}})";
}

std::string cardPage(const std::string& state, bool isScratchable = true) {
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
      "toolbar":{"text":"긁는 복권"},"component_order":["scratch_lottery"]}},"blank":[24],
    "scratch_lottery":[{"state":")" +
         state + R"(","scratchable":)" + (isScratchable ? "true" : "false") +
         R"(,"result":"커피 쿠폰 당첨","mot_url":"/blocked","done_url":"/scratched",
      "primary_color":"#5B50E8","secondary_color":"#E5E3FF"}]}})";
}

constexpr int cardTop = 44 + 24;  // below the bar and the first blank

/// Points of a stroke through the corners, in window coordinates; the corners are in the card's coordinates.
std::vector<QPoint> stroke(const std::vector<QPoint>& corners) {
  std::vector<QPoint> points{corners.front() + QPoint(0, cardTop)};
  for (const auto& corner : corners) {
    const auto from = points.back();
    const auto to = corner + QPoint(0, cardTop);
    const int steps = std::max(1, (to - from).manhattanLength() / 4);
    for (int i = 1; i <= steps; ++i) points.push_back(from + (to - from) * i / steps);
  }
  return points;
}

class GamesTest : public QuickTest {
 protected:
  void openPage(const std::string& page) {
    service_->answers["/campaigns/c-1"] = {200, campaignReply(page)};
    showCampaign();
  }
  void openCard(const std::string& page) {
    openPage(page);
    ASSERT_TRUE(waitFor([&] { return names().contains(QStringLiteral("긁는 복권")); }));
    settle();
  }
  /// Drags a finger or the mouse through the points; returns how far the page has scrolled before the
  /// release.
  double drag(const std::vector<QPoint>& points, bool byFinger) {
    static auto* const screen = QTest::createTouchDevice();
    if (byFinger) {
      QTest::touchEvent(window_, screen).press(0, points.front(), window_);
    } else {
      QTest::mousePress(window_, Qt::LeftButton, {}, points.front());
    }
    for (const auto& point : points) {
      if (byFinger) {
        QTest::touchEvent(window_, screen).move(0, point, window_);
      } else {
        QTest::mouseMove(window_, point);
      }
    }
    const double scrolled = drawnBy("ModularCampaignView").at(0)->property("contentY").toDouble();
    if (byFinger) {
      QTest::touchEvent(window_, screen).release(0, points.back(), window_);
    } else {
      QTest::mouseRelease(window_, Qt::LeftButton, {}, points.back());
    }
    return scrolled;
  }
  static int differing(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x) count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    }
    return count;
  }
};

TEST_F(GamesTest, TheWheelSpinsToItsSectorAndTheServiceIsTold) {
  service_->answers["/spin"] = {200, wheelPage(R"({"state":"running","result_index":2,"done_url":"/done"})")};
  service_->answers["/done"] = {200, wheelPage(R"({"state":"done","result_index":2})")};
  openPage(wheelPage(R"({"state":"idle"})"));
  ASSERT_TRUE(waitForNamed(spinButton));
  const auto idle = grab("roulette-idle");
  click(spinButton);
  ASSERT_TRUE(waitFor([&] { return service_->timesAsked("/spin") == 1; }));
  EXPECT_TRUE(waitFor([&] { return differing(idle, window_->grabWindow()) > 1000; })) << "it turns";
  grab("roulette-spinning");
  EXPECT_EQ(service_->timesAsked("/done"), 0);
  window_->hide();
  settle();
  window_->show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return service_->timesAsked("/done") == 1; }, 8000));
  EXPECT_EQ(service_->timesAsked("/campaigns/c-1"), 1) << "a window that is shown again goes on";
  EXPECT_EQ(service_->timesAsked("/spin"), 1);
  const auto done = grab("roulette-done");
  EXPECT_GT(differing(idle, done), 1000);
  EXPECT_EQ(service_->timesAsked("/done"), 1);
}

TEST_F(GamesTest, AWheelBelowTheFoldSpinsAndIsPaintedWhenItComesIntoSight) {
  const auto farDown = [](std::string page) {
    constexpr std::string_view blank = R"("blank":[24,)";
    return page.replace(page.find(blank), blank.size(), R"("blank":[2000,)");
  };
  service_->answers["/done"] = {200, farDown(wheelPage(R"({"state":"done","result_index":2})"))};
  openPage(farDown(wheelPage(R"({"state":"running","result_index":2,"done_url":"/done"})")));
  ASSERT_TRUE(waitFor([&] { return !drawnBy("RouletteView").empty(); }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return service_->timesAsked("/done") == 1; }, 8000));
  settle();
  std::vector<std::unique_ptr<QSignalSpy>> paints;
  for (auto* const part : drawnBy("RouletteView").front()->findChildren<QQuickPaintedItem*>()) {
    paints.push_back(std::make_unique<QSignalSpy>(part, SIGNAL(painted())));
  }
  ASSERT_EQ(paints.size(), 2U) << "the wheel and what stands still above it";
  const auto countPaints = [&](int count) {
    return std::all_of(paints.begin(), paints.end(), [&](const auto& spy) { return spy->count() == count; });
  };
  window_->grabWindow();
  EXPECT_TRUE(countPaints(0));
  press(Qt::Key_End);
  EXPECT_TRUE(waitFor([&] { return countPaints(1); }));
  const auto shown = grab("roulette-scrolled-to");
  press(Qt::Key_Home);
  settle();
  press(Qt::Key_End);
  EXPECT_EQ(differing(shown, grab("roulette-scrolled-to-again")), 0);
  EXPECT_TRUE(countPaints(2)) << "it gives its pixels back far out of sight";
}

TEST_F(GamesTest, AScratchedCardLooksTheSameWhenItComesBackIntoSight) {
  auto page = cardPage("idle");
  const std::string order = R"("component_order":["scratch_lottery"]}},"blank":[24])";
  page.replace(
      page.find(order), order.size(),
      R"("component_order":["scratch_lottery","notice"]}},"blank":[24,3000],"notice":[{"items":["끝"]}])");
  open({390, 844});
  openCard(page);
  const auto whole = grab("scratch-before-scrolling");
  drag(stroke({{40, 40}, {120, 40}}), false);
  const auto scratched = grab("scratch-scrolled-from");
  ASSERT_GT(differing(whole, scratched), 500);
  press(Qt::Key_End);
  settle();
  press(Qt::Key_Home);
  EXPECT_EQ(differing(scratched, grab("scratch-scrolled-back-to")), 0);
}

TEST_F(GamesTest, ACardIsScratchedByStrokesThatDriftAndTheServiceIsToldOnce) {
  service_->answers["/scratched"] = {200, cardPage("done")};
  for (const bool byFinger : {false, true}) {
    SCOPED_TRACE(byFinger ? "finger" : "mouse");
    open({390, 844});
    openCard(cardPage("idle"));
    const auto before = service_->timesAsked("/scratched");
    const auto whole = grab("scratch-whole");
    const QRect end(120, cardTop + 60, 15, 15);
    EXPECT_EQ(drag(stroke({{30, 10}, {40, 60}, {130, 70}}), byFinger), 0.0) << "drifts down";
    const auto begun = grab("scratch-begun");
    EXPECT_GT(differing(whole, begun), 2000) << "some of the mask is gone";
    EXPECT_EQ(differing(whole.copy(end), begun.copy(end)), 15 * 15) << "up to the end of the stroke";
    EXPECT_EQ(service_->timesAsked("/scratched"), before);
    // A zigzag that leaves the card and comes back.
    EXPECT_EQ(drag(stroke({{140, 70}, {170, 10}, {200, 70}, {230, 10}, {260, 200}, {300, 10}, {350, 60}}),
                   byFinger),
              0.0);
    EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/scratched") > before; }));
    settle();
    grab("scratch-done");
    EXPECT_EQ(service_->timesAsked("/scratched"), before + 1);
  }
}

TEST_F(GamesTest, ACardThatCannotBeScratchedLetsThePageScroll) {
  for (const bool byFinger : {false, true}) {
    for (const auto& page : {cardPage("done"), cardPage("idle", false), cardPage("done", false)}) {
      SCOPED_TRACE(page);
      open({390, 844});
      openCard(page);
      EXPECT_NE(drag(stroke({{195, 10}, {195, 110}}), byFinger), 0.0);
    }
  }
  open({390, 844});
  openCard(cardPage("idle", false));
  const auto before = service_->timesAsked("/blocked");
  EXPECT_EQ(drag(stroke({{100, 40}, {200, 45}}), true), 0.0);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/blocked") > before + 1; }));
}

TEST_F(GamesTest, ACardOpensByTheKeyboard) {
  service_->answers["/scratched"] = {200, cardPage("done")};
  openCard(cardPage("idle"));
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  grab("scratch-focus");
  press(Qt::Key_Return);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/scratched") == 1; }));
}

}  // namespace
}  // namespace orrelo::test
