#include "QuickTest.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/PopUpDialogViewController.h"

namespace orrelo::test {
namespace {

const QString closeText = QStringLiteral("닫기");

class Closed final : public CampaignRewardViewControllerDelegate {
 public:
  void didClose() override { ++count; }
  int count = 0;
};

class DialogTest : public QuickTest {
 protected:
  std::shared_ptr<CampaignRewardViewController> reward() {
    auto screen = std::make_shared<CampaignRewardViewController>(
        CampaignRewardViewController::Content{"축하합니다!",
                                              "출석 포인트 1,000P를 받았어요. 지금 바로 사용해 보세요.",
                                              "포인트 보러 가기",
                                              {1.0, 0.88, 0.54}});
    screen->delegate = closed_;
    return screen;
  }

  std::shared_ptr<Closed> closed_ = std::make_shared<Closed>();
};

TEST_F(DialogTest, ARewardClosesByItsIconItsButtonAndEscapeButNotOutsideTheCard) {
  host()->present(reward(), false);
  ASSERT_TRUE(waitForNamed(closeText));
  grab("reward-390");
  QTest::mouseClick(window_, Qt::LeftButton, {}, {20, 20});
  EXPECT_EQ(closed_->count, 0);
  click(closeText);
  EXPECT_EQ(closed_->count, 1);
  EXPECT_EQ(host()->presentedViewController(), nullptr);
  host()->present(reward(), false);
  press(Qt::Key_Escape);
  EXPECT_EQ(closed_->count, 2);
  host()->present(reward(), false);
  settle();
  const auto button = named(QStringLiteral("포인트 보러 가기"))->mapToScene({20, 20}).toPoint();
  const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
  QTest::touchEvent(window_, finger.get()).press(0, button);
  QTest::touchEvent(window_, finger.get()).release(0, button);
  EXPECT_EQ(closed_->count, 3);
  EXPECT_EQ(named(closeText), nullptr);

  open({320, 568}, 2.0);
  host()->present(reward(), false);
  ASSERT_TRUE(waitForNamed(closeText));
  grab("reward-320-large-text");
  EXPECT_LT(named(QStringLiteral("포인트 보러 가기"))->property("textColor").value<QColor>().lightness(), 100)
      << "dark on a light brand colour";
}

TEST_F(DialogTest, APopUpKeepsItsCloseLabelInReach) {
  open({320, 568}, 2.0);
  std::string label;
  for (int i = 0; i < 40; ++i) label += "경품은 다음 주에 보내드려요. ";
  host()->present(std::make_shared<PopUpDialogViewController>(
                      "page", PopUpDialogViewController::Content{"당첨을 축하합니다", label, "", ""}),
                  false);
  ASSERT_TRUE(waitForNamed(closeText));
  grab("pop-up-320-large-text");
  EXPECT_LE(sceneRect(named(closeText)).bottom(), 568.0);
  click(closeText);
  EXPECT_EQ(host()->presentedViewController(), nullptr);
}

}  // namespace
}  // namespace orrelo::test
