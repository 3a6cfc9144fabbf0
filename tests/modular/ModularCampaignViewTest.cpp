#include "RenderedPage.h"
#include "viewkit/CampaignRewardViewController.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

class ModularCampaignViewTest : public RenderedPage {
 protected:
  std::shared_ptr<CampaignRewardViewController> reward() const {
    return std::dynamic_pointer_cast<CampaignRewardViewController>(screen_->presentedViewController());
  }
  Lines toasts() const {
    Lines lines;
    for (const auto& toast : screen_->toastLayer->toasts.value()) lines.push_back(toast->message);
    return lines;
  }

  std::shared_ptr<Screen> screen_ = std::make_shared<Screen>();
};

TEST_F(ModularCampaignViewTest, DialogsAreShownAtEachBuildAndAskForTheCampaignWhenClosed) {
  const auto page = build(wholePage());
  page->showDialogs(*screen_);
  const auto first = reward();
  ASSERT_TRUE(first);
  // The second reward is not shown: a screen presents one at a time.
  EXPECT_EQ(first->content.title, "축하합니다 🎉");
  EXPECT_EQ(first->content.message, "커피 쿠폰을 받았어요.");
  EXPECT_EQ(first->content.buttonText, "확인");
  EXPECT_EQ(first->content.color, Color::fromHex("#5B50E8"));
  EXPECT_THAT(reports_->names, ElementsAre("ol_reward_pop_up_show"));
  EXPECT_THAT(toasts(), ElementsAre("선물이 도착했어요", "내일 또 만나요"));
  first->close();
  EXPECT_FALSE(reward());
  EXPECT_THAT(requests_->lines, ElementsAre("reload"));

  build(wholePage())->showDialogs(*screen_);
  EXPECT_TRUE(reward());
  EXPECT_EQ(toasts().size(), 2U) << "equal toasts are shown once";
}

TEST_F(ModularCampaignViewTest, APageLeavesNothingBehind) {
  std::vector<std::weak_ptr<View>> views;
  {
    const auto page = build(wholePage());
    views.push_back(page);
    for (const auto& each : page->stackView->arrangedSubviews) views.push_back(each.view);
  }
  for (const auto& view : views) EXPECT_TRUE(view.expired());
}

}  // namespace
}  // namespace orrelo::test
