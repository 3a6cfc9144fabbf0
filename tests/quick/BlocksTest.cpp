#include "QuickTest.h"

#include <QAccessible>
#include <algorithm>
#include <functional>
#include <utility>

namespace orrelo::test {
namespace {

const QString openBox = QStringLiteral("상자 열기");
const QString tomorrow = QStringLiteral("내일 다시 열 수 있어요");
const QString tooltipLine = QStringLiteral("당첨 확률 안내");
const QString attendance = QStringLiteral("출석체크, 매일 들러 포인트를 받아 가세요");

/// Every kind of plain block, with an unknown name, and two buttons of which the second is disabled.
std::string blocksPage() {
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
      "toolbar":{"text":"매일 열리는 선물 상자"},
      "component_order":["image","information","action","hologram","information_tooltip",
        "boxed_information_list","web","page_entry_view","page_entry_view","notice","action","image"]}},
    "blank":[24,20,16,28,32,12,18,22,10,14,26,30,36],
    "image":[{"url":"https://cdn.example/result.png","style":"fit"},
      {"url":"https://cdn.example/gift.png","style":"none"}],
    "information":[{"first_title":"하루에 한 번 열리는","second_title":"선물 상자를 열어 보세요!",
      "guide_message":"자정이 지나면 다시 열 수 있어요.\n지난 상자는 사라져요."}],
    "action":[{"button_text":"상자 열기","status_message":"오늘은 아직 한 번 남았어요","button_enable":true,
      "button_url":"/open","button_color":"#5B50E8"},
      {"button_text":"내일 다시 열 수 있어요","status_message":"오늘의 상자는 이미 열었어요",
      "button_enable":false,"button_url":"/again","button_color":"#5B50E8"}],
    "information_tooltip":[{"first_title":"받을 수 있는","second_title":"이번 주 선물 목록",
      "tooltip_title":"당첨 확률 안내","tooltip_message":"모든 선물의 확률은 같아요."}],
    "boxed_information_list":[{"title":"이번 주의 선물","items":[
      {"left_text":"커피 쿠폰","image_url":"https://cdn.example/gift.png","right_text":"1,000명","color":"#E8505B"},
      {"left_text":"오래 기다려 주신 분께 드리는 특별 포인트","image_url":"https://cdn.example/gift.png",
       "right_text":"참여한 모두에게","color":"#5B50E8"}]}],
    "web":[{"url":"https://cdn.example/page.html","width":"100%","height":"40"}],
    "page_entry_view":[{"title":"출석체크","label":"매일 들러 포인트를 받아 가세요",
      "icon_url":"https://cdn.example/gift.png","campaign_id":"c-2"},
      {"title":"가을 스탬프","label":"미션을 마치고 모으세요","icon_url":"","campaign_id":"c-3"}],
    "notice":[{"items":["상자는 하루에 한 번 열 수 있습니다.","쿠폰은 30일 안에 써 주세요.",
      "이벤트는 사정에 따라 예고 없이 끝날 수 있습니다."]}]}})";
}

class BlocksTest : public QuickTest {
 protected:
  BlocksTest() { service_->answers["/campaigns/c-1"] = {200, campaignReply(blocksPage())}; }

  void openPage(QSize size = {390, 844}, double textScale = 1.0) {
    open(size, textScale);
    showCampaign();
    ASSERT_TRUE(waitForNamed(openBox));
    settle();
  }
  /// The scene rectangle of each block, from top to bottom.
  std::vector<std::pair<std::string, QRectF>> places() const {
    std::vector<std::pair<std::string, QRectF>> found;
    for (const auto* const file : {"SpacerView", "AutoLayoutImageView", "InformationView", "ActionButtonView",
                                   "TooltipInformationView", "BoxedInformationListView", "WebView",
                                   "PageEntryView", "NoticeView", "RouletteView", "ScratchLotteryView"}) {
      for (const auto* const item : drawnBy(file)) found.emplace_back(file, sceneRect(item));
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& one, const auto& other) {
      return one.second.top() < other.second.top();
    });
    return found;
  }
};

/// Opens a page of which nothing but a space is above the fold, without assistive technology.
class LateBlocksTest : public BlocksTest {
 protected:
  LateBlocksTest() {
    auto page = blocksPage();
    const std::string blank = R"("blank":[24,)";
    page.replace(page.find(blank), blank.size(), R"("blank":[2000,)");
    const std::string order = R"("image"]}})";  // the end of the order
    page.replace(page.find(order), order.size(), R"("image","roulette","scratch_lottery","action"]}},
      "roulette":[{"progress":{"state":"idle"},"items_v2":[{"reward_type":"쿠폰","reward_text":"커피"},
        {"reward_type":"","reward_text":"꽝"}],"primary_color":"#5B50E8","secondary_color":"#E5E3FF"}],
      "scratch_lottery":[{"state":"idle","scratchable":true,"result":"커피","mot_url":"/no","done_url":"/no",
        "primary_color":"#5B50E8","secondary_color":"#E5E3FF"}])");
    const std::string buttons = R"("button_color":"#5B50E8"}],)";  // the end of the last one
    page.replace(page.find(buttons), buttons.size(), R"("button_color":"#5B50E8"},{"button_text":"",
      "status_message":"","button_enable":true,"button_url":"/no","button_color":"#5B50E8"}],)");
    service_->answers["/campaigns/c-1"] = {200, campaignReply(page)};
    QAccessible::setActive(false);
  }
  ~LateBlocksTest() override { QAccessible::setActive(wasActive_); }

  /// Opens the page in a new window, twice, so that its pictures are there from the beginning, and calls
  /// `act` after the first frame.
  void openTwice(QSize size, double textScale, const std::function<void()>& act) {
    open(size, textScale);
    showCampaign();
    ASSERT_TRUE(waitFor([&] { return places().size() == blockCount; }));
    settle();
    host()->dismiss(false);
    ASSERT_TRUE(waitFor([&] { return page() == nullptr; }));
    bool hasActed = false;
    const auto frames = QObject::connect(window_, &QQuickWindow::frameSwapped, [&] {
      if (page() != nullptr && !std::exchange(hasActed, true)) act();
    });
    showCampaign();
    ASSERT_TRUE(waitFor([&] { return hasActed; }));
    QObject::disconnect(frames);
  }
  QQuickItem* page() const {
    const auto pages = drawnBy("ModularCampaignView");
    return pages.empty() ? nullptr : pages.front();
  }
  double height() const { return page()->property("contentHeight").toDouble(); }

  static constexpr std::size_t blockCount = 15;

 private:
  const bool wasActive_ = QAccessible::isActive();
};

TEST_F(LateBlocksTest, TheHeightIsRightFromTheFirstFrame) {
  for (const auto& [width, textScale] : {std::pair(320, 1.0), {320, 2.0}, {390, 1.0}, {600, 1.5}}) {
    SCOPED_TRACE(testing::Message() << width << " points, scale " << textScale);
    double firstHeight = 0.0;
    std::size_t firstCount = 0;
    openTwice({width, 568}, textScale, [&] {
      firstHeight = height();
      firstCount = places().size();
    });
    EXPECT_EQ(firstCount, 5U) << "a space, two pictures, the web view and the wheel are created at once";
    ASSERT_TRUE(waitFor([&] { return places().size() == blockCount; }));
    settle();
    EXPECT_DOUBLE_EQ(height(), firstHeight);
  }
}

TEST_F(LateBlocksTest, APageThatIsOpenedAgainHasItsPicturesInItsFirstFrame) {
  std::size_t firstCount = 0;
  openTwice({390, 568}, 1.0, [&] {
    press(Qt::Key_Tab);  // creates all blocks
    firstCount = drawnBy("KitImage").size();
  });
  settle();
  EXPECT_EQ(firstCount, 3U) << "two in boxes and an icon";
  EXPECT_EQ(drawnBy("KitImage").size(), firstCount);
}

TEST_F(LateBlocksTest, AJumpToTheEndShowsNoHole) {
  std::size_t count = 0;
  openTwice({390, 568}, 1.0, [&] {
    EXPECT_TRUE(drawnBy("ScratchLotteryView").empty() && drawnBy("ActionButtonView").empty());
    page()->setProperty("contentY", height() - 568);
    count = drawnBy("ScratchLotteryView").size() + drawnBy("ActionButtonView").size();
  });
  EXPECT_EQ(count, 2U) << "the card and the last button";
}

TEST_F(LateBlocksTest, TheKeyboardFindsEveryBlock) {
  std::size_t count = 0;
  openTwice({390, 568}, 1.0, [&] {
    press(Qt::Key_Tab);
    count = places().size();
  });
  EXPECT_EQ(count, blockCount);
}

TEST_F(BlocksTest, BlocksStandInOrderWithTheSpacingThatWasSent) {
  openPage();
  const auto all = places();
  std::vector<std::string> kinds;
  std::vector<double> gaps;
  for (std::size_t i = 0; i < all.size(); ++i) {
    kinds.push_back(all[i].first);
    // A row ends at a whole pixel, so that the spacing may be a fraction of a pixel less.
    if (i > 0) gaps.push_back(std::ceil(all[i].second.top() - all[i - 1].second.bottom() - 0.01));
  }
  EXPECT_THAT(kinds, testing::ElementsAre(
                         "SpacerView", "AutoLayoutImageView", "InformationView", "ActionButtonView",
                         "TooltipInformationView", "BoxedInformationListView", "WebView", "PageEntryView",
                         "PageEntryView", "NoticeView", "ActionButtonView", "AutoLayoutImageView"));
  // The blank after the unknown name replaces the one before it.
  EXPECT_THAT(gaps, testing::ElementsAre(0, 20, 16, 32, 12, 18, 22, 10, 14, 26, 30));
  EXPECT_EQ(all.front().second.top(), 44.0);
  EXPECT_EQ(all.front().second.height(), 24.0);
  const auto* const scroll = drawnBy("ModularCampaignView").at(0);
  EXPECT_NEAR(scroll->property("contentHeight").toDouble(), all.back().second.bottom() - 44.0, 0.5)
      << "no spacing after the last block";
  EXPECT_NEAR(all[1].second.height(), 390.0 * 400 / 700, 0.5) << "as wide as the page";
  EXPECT_EQ(all[6].second.size(), QSizeF(390, 40)) << "a web block reserves its area";
}

TEST_F(BlocksTest, FitSmallScreensAndLargeText) {
  struct Place {
    double textScale;
    QString name;
  };
  for (const auto& [scale, name] : {Place{1.0, "blocks-320"}, Place{2.0, "blocks-320-large-text"}}) {
    SCOPED_TRACE(name.toStdString());
    openPage({320, 568}, scale);
    expectNothingCut();
    grab(name + "-1");
    for (int i = 2; i <= 5; ++i) {
      press(Qt::Key_PageDown);
      grab(name + QStringLiteral("-%1").arg(i));
    }
    named(tooltipLine)->parentItem()->forceActiveFocus(Qt::TabFocusReason);  // scrolls it into view
    settle();
    click(tooltipLine);
    ASSERT_TRUE(waitForNamed(QStringLiteral("모든 선물의 확률은 같아요.")));
    expectNothingCut();
    grab(name + "-tooltip");
  }
}

TEST_F(BlocksTest, APressTakesPartOnceAndADisabledButtonDoesNothing) {
  openPage();
  click(openBox);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/open") + service_->timesAsked("/again") > 0; }));
  EXPECT_EQ(service_->timesAsked("/open"), 1);
  EXPECT_EQ(focusName(), openBox);
  QTest::sendKeyEvent(QTest::Press, window_, Qt::Key_Return, QString(), Qt::NoModifier);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QCoreApplication::sendEvent(window_, &held);
  settle();
  EXPECT_EQ(service_->timesAsked("/open"), 2) << "a held key presses once";

  press(Qt::Key_End);
  settle();
  ASSERT_LT(sceneRect(named(tomorrow)).bottom(), 844.0);
  EXPECT_FALSE(named(tomorrow)->isEnabled());
  click(tomorrow);
  for (int i = 0; i < 8; ++i) {
    press(Qt::Key_Tab);
    EXPECT_NE(focusName(), tomorrow);
  }
  settle();
  EXPECT_EQ(service_->timesAsked("/again"), 0);
}

TEST_F(BlocksTest, AnEntryLeadsToItsCampaign) {
  service_->answers["/campaigns/c-2"] = {200, campaignReply(richAttendancePage(), "c-2")};
  openPage();
  press(Qt::Key_Tab);
  named(attendance)->forceActiveFocus(Qt::TabFocusReason);  // scrolls it into view
  settle();
  grab("blocks-entry-focus");
  click(attendance);
  ASSERT_TRUE(waitForNamed(QStringLiteral("출석체크 하기")));
  EXPECT_EQ(service_->timesAsked("/campaigns/c-2"), 1);
}

}  // namespace
}  // namespace orrelo::test
