#include "QuickTest.h"

namespace orrelo::test {
namespace {

const QString spinButton = QStringLiteral("돌리기");

// A page with a wheel in `progress` and a button, or with a card to scratch.
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

std::string cardPage(const std::string& state) {
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
      "toolbar":{"text":"긁는 복권"},"component_order":["scratch_lottery"]}},"blank":[24],
    "scratch_lottery":[{"state":")" +
         state +
         R"(","scratchable":true,"result":"커피 쿠폰 당첨","mot_url":"/blocked","done_url":"/scratched",
      "primary_color":"#5B50E8","secondary_color":"#E5E3FF"}]}})";
}

class GamesTest : public QuickTest {
 protected:
  void openPage(const std::string& page) {
    service_->answers["/campaigns/c-1"] = {200, campaignReply(page)};
    showCampaign();
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
  const auto spinning = grab("roulette-spinning");
  EXPECT_GT(differing(idle, spinning), 1000) << "it turns";
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
  open({320, 568});
  openPage(wheelPage(R"({"state":"done","result_index":2})"));
  ASSERT_TRUE(waitForNamed(spinButton));
  grab("roulette-320");
}

TEST_F(GamesTest, ACardIsRubbedFreeAndTheServiceIsToldOnce) {
  service_->answers["/scratched"] = {200, cardPage("done")};
  openPage(cardPage("idle"));
  ASSERT_TRUE(
      waitFor([&] { return window_->contentItem() && names().contains(QStringLiteral("긁는 복권")); }));
  settle();
  const auto whole = grab("scratch-whole");
  const int top = 44 + 24;  // below the bar and the first blank
  const auto rub = [&](int y, int end) {
    QTest::mousePress(window_, Qt::LeftButton, {}, {30, y});
    for (int x = 34; x <= end; x += 4) QTest::mouseMove(window_, {x, y});
    QTest::mouseRelease(window_, Qt::LeftButton, {}, {end, y});
  };
  rub(top + 40, 130);
  const auto begun = grab("scratch-begun");
  EXPECT_GT(differing(whole, begun), 2000) << "some of the mask is gone";
  EXPECT_EQ(service_->timesAsked("/scratched"), 0);
  rub(top + 20, 360);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/scratched") >= 1; }));
  settle();
  grab("scratch-done");
  EXPECT_EQ(service_->timesAsked("/scratched"), 1);
}

TEST_F(GamesTest, ACardOpensByTheKeyboard) {
  service_->answers["/scratched"] = {200, cardPage("done")};
  openPage(cardPage("idle"));
  ASSERT_TRUE(waitFor([&] { return names().contains(QStringLiteral("긁는 복권")); }));
  settle();
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  grab("scratch-focus");
  press(Qt::Key_Return);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/scratched") == 1; }));
}

}  // namespace
}  // namespace orrelo::test
