#include "QuickTest.h"

namespace orrelo::test {
namespace {

const QString checkIn = QStringLiteral("출석체크 하기");
const QString done = QStringLiteral("오늘은 출석했어요");
const QString guide = QStringLiteral("출석체크 안내");
const QString guideMessage = QStringLiteral("하루에 한 번, 자정이 지나면 다시 출석할 수 있어요.");
const QString loading = QStringLiteral("불러오는 중");

class AttendanceTest : public QuickTest {
 protected:
  AttendanceTest() { service_->answers["/campaigns/c-1"] = {200, campaignReply(richAttendancePage())}; }

  void openCampaign() {
    showCampaign();
    ASSERT_TRUE(waitForNamed(checkIn));
    settle();
  }
};

TEST_F(AttendanceTest, FitsPhonesAndDesktops) {
  openCampaign();
  grab("attendance-390");
  press(Qt::Key_End);
  grab("attendance-390-end");
  struct Place {
    QSize size;
    double textScale;
    QString name;
  };
  for (const auto& [size, scale, name] :
       {Place{{320, 568}, 1.0, "attendance-320"}, Place{{320, 568}, 2.0, "attendance-320-large-text"},
        Place{{1280, 800}, 1.0, "attendance-desktop"}}) {
    open(size, scale);
    openCampaign();
    grab(name);
    for (const auto& shown : names()) {
      const auto place = sceneRect(named(shown));
      EXPECT_GE(place.left(), 0.0) << name.toStdString() << ": " << shown.toStdString();
      EXPECT_LE(place.right(), size.width() + 0.5) << name.toStdString() << ": " << shown.toStdString();
    }
    press(Qt::Key_End);
    grab(name + "-end");
  }
}

TEST_F(AttendanceTest, TheCellsShowTheirDaysAndIconsAndChangeWithTheCheckIn) {
  openCampaign();
  const auto before = names();
  for (const auto* cell : {"일", "17일, 출석", "18일, 오늘", "10일, 보너스, 출석", "20일, 보너스"}) {
    EXPECT_TRUE(before.contains(QString::fromUtf8(cell))) << cell;
  }
  const auto place = sceneRect(named(QStringLiteral("20일, 보너스")));
  EXPECT_GE(count(grab("attendance-cells").copy(place.toRect()), QColor("#e8505b")), 20)
      << "the icon's parcel";
  EXPECT_EQ(service_->timesAsked("/gift.png"), 1) << "one image for all cells";

  service_->answers["/attend"] = {200, richAttendancePage("", false)};
  click(checkIn);
  ASSERT_TRUE(waitForNamed(done));
  EXPECT_EQ(names().contains(QStringLiteral("20일, 보너스")), true);
  // Disabled: neither a click nor the keyboard reaches the button.
  click(done);
  press(Qt::Key_Return);
  settle();
  EXPECT_EQ(service_->timesAsked("/attend"), 1);
}

TEST_F(AttendanceTest, ShowsThatItLoadsThenThePage) {
  const auto page = service_->answers.extract("/campaigns/c-1").mapped();
  showCampaign();
  EXPECT_TRUE(waitForNamed(loading));
  grab("attendance-loading");
  EXPECT_EQ(named(checkIn), nullptr);
  service_->answerWaiting("/campaigns/c-1", page);
  EXPECT_TRUE(waitForNamed(checkIn));
  EXPECT_EQ(named(loading), nullptr);
}

TEST_F(AttendanceTest, SaysWhatIsWrongOverThePage) {
  openCampaign();
  service_->answers["/attend"] = {500, ""};
  click(checkIn);
  EXPECT_TRUE(waitForNamed(QStringLiteral("잠시 후 다시 시도해 주세요.")));
  grab("attendance-error");
  EXPECT_EQ(named(checkIn), nullptr);
  EXPECT_NE(named(back), nullptr);
}

TEST_F(AttendanceTest, AnEarnedRewardLiesOverThePageUntilItIsClosed) {
  openCampaign();
  service_->answers["/attend"] = {
      200,
      richAttendancePage(R"(,"reward_message":{"title":"100P 적립!","body":"오늘의 출석 포인트를\n받았어요.",
                                                "button_text":"확인"})",
                         false)};
  click(checkIn);
  ASSERT_TRUE(waitForNamed(QStringLiteral("확인")));
  grab("attendance-reward");
  EXPECT_NE(named(done), nullptr) << "the page shows through";
  EXPECT_EQ(focusName(), QStringLiteral("확인"));
  press(Qt::Key_Return);
  EXPECT_TRUE(waitFor([&] { return named(QStringLiteral("확인")) == nullptr; }));
  EXPECT_EQ(service_->timesAsked("/campaigns/c-1"), 1) << "the page beneath does not appear again";
}

TEST_F(AttendanceTest, TheGuideShowsItsTooltipUntilATapElsewhereOrItFades) {
  openCampaign();
  EXPECT_EQ(named(guideMessage), nullptr);
  click(guide);
  EXPECT_TRUE(waitForNamed(guideMessage));
  grab("attendance-tooltip");
  click(QStringLiteral("11월"));
  EXPECT_EQ(named(guideMessage), nullptr);
  click(guide);
  ASSERT_TRUE(waitForNamed(guideMessage));
  EXPECT_TRUE(QTest::qWaitFor([&] { return named(guideMessage) == nullptr; }, 6000)) << "it fades by itself";
}

TEST_F(AttendanceTest, ATapOnTheTooltipDoesNotPressWhatLiesBeneath) {
  service_->answers["/none.png"] = {404, ""};
  service_->answers["/campaigns/c-1"] = {
      200, campaignReply(richAttendancePage(R"(,"image_url":"https://cdn.example/none.png")"))};
  openCampaign();
  click(guide);
  ASSERT_TRUE(waitForNamed(guideMessage));
  const auto* const bubble = named(guideMessage);
  const auto* const button = named(checkIn);
  const auto both = sceneRect(bubble) & sceneRect(button);
  ASSERT_FALSE(both.isEmpty()) << "without a picture the tooltip lies over the button";
  QTest::mouseClick(window_, Qt::LeftButton, {}, both.center().toPoint());
  EXPECT_EQ(named(guideMessage), nullptr);
  settle();
  EXPECT_EQ(service_->timesAsked("/attend"), 0);
}

TEST_F(AttendanceTest, TheKeyboardReachesEverythingInReadingOrder) {
  openCampaign();
  QStringList order;
  for (int i = 0; i < 3; ++i) {
    press(Qt::Key_Tab);
    order.push_back(focusName());
  }
  EXPECT_EQ(order, QStringList({back, guide, checkIn}));
  grab("attendance-focus");
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), back) << "the host beneath takes no focus";
  service_->answers["/attend"] = {200, richAttendancePage("", false)};
  press(Qt::Key_Backtab);
  press(Qt::Key_Space);
  EXPECT_TRUE(waitForNamed(done));
}

}  // namespace
}  // namespace orrelo::test
