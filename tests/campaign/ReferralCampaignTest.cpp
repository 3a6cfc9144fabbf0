#include "CampaignReplies.h"
#include "campaign/referral/ReferralCampaignView.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ReferralCampaign referralOf(const std::string& key = "code", const Json& value = "MINJI-2026") {
  auto json = Json::parse(storedReply("referral.json"));
  json["page"]["page_detail"][key] = value;
  return std::get<ReferralCampaign>(mapped(json).type);
}

class ReferralCampaignTest : public testing::Test {
 protected:
  ReferralCampaignTest() { setUserEventDelegate(reports_); }
  ~ReferralCampaignTest() override { setUserEventDelegate(nullptr); }

  static std::vector<std::string> toasts(const ReferralCampaignView& view) {
    std::vector<std::string> texts;
    for (const auto& toast : view.toastLayer->toasts.value()) texts.push_back(toast->message);
    return texts;
  }

  TestPlatform platform_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
};

TEST_F(ReferralCampaignTest, EveryFieldHasItsPlace) {
  const ReferralCampaign expected{
      .campaignInfo = {"친구를 초대하고", "함께 포인트를 받으세요!", "", std::nullopt},
      .code = "MINJI-2026",
      .codeDescription = "나의 초대 코드",
      .buttonText = "내 코드 복사하기",
      .buttonGuideMessage = "초대 안내",
      .navigateEnable = true,
      .navigateBlockMessage = "이미 친구의 코드를 입력했어요.",
      .referralMessage = "민지의 초대 코드: MINJI-2026\nhttps://shop.example/join?code=MINJI-2026",
      .notice = {{"한 사람은 한 번만 초대받을 수 있습니다.", "포인트는 가입한 다음 날 적립됩니다."}},
      .primaryColor = Color::fromHex("#5B50E8"),
      .secondaryColor = Color::fromHex("#FFCC00"),
      .cumulativeCount = 3,
      .referral = {"/referral/c-referral-5/verify", "/referral/c-referral-5/authorize"}};
  EXPECT_EQ(referralOf(), expected);
  const auto stored = expected.referral.encode();
  EXPECT_EQ(stored, R"({"verificationUrl":"/referral/c-referral-5/verify",)"
                    R"("authorizationUrl":"/referral/c-referral-5/authorize"})");
  JsonParser parser;
  EXPECT_EQ(Referral::decode(parser.parse(stored).objectValue()), expected.referral);

  const ReferralCampaignView view(expected);
  EXPECT_EQ(view.copyTitle, "내 코드 복사하기");
  EXPECT_EQ(view.joinedCount, "3명");
  EXPECT_EQ(view.infoView->state.value(),
            (CampaignInfoView::State{"친구를 초대하고", "함께 포인트를 받으세요!", "", ""}));
}

TEST_F(ReferralCampaignTest, TheButtonsCopyShareAndLeadOn) {
  for (const std::string code : {"MINJI-2026", "", "두\n줄 🎁", "   "}) {
    ReferralCampaignView(referralOf("code", code)).copyCode();
    EXPECT_EQ(platform_.texts->pasteboard.back(), code);
  }
  reports_->names.clear();
  ReferralCampaignView view(referralOf());
  int routed = 0;
  view.onNavigateViewDidTap = [&] { ++routed; };
  view.copyCode();
  view.shareReferralMessage();
  view.showReferralViewController();
  EXPECT_EQ(routed, 1);
  EXPECT_THAT(platform_.texts->shared, ElementsAre(referralOf().referralMessage));
  EXPECT_THAT(toasts(view), ElementsAre("초대 코드가 복사되었습니다"));
  EXPECT_EQ(view.toastLayer->toasts.value()[0]->backgroundColor, (Color{0, 0, 0, 0.87}));
  EXPECT_THAT(reports_->names,
              ElementsAre("ol_referral_copy_code_button_click", "ol_referral_sharing_button_click",
                          "ol_referral_navigation_view_click"));

  ReferralCampaignView blocked(referralOf("navigate_enable", false));
  blocked.onNavigateViewDidTap = [&] { ++routed; };
  blocked.showReferralViewController();
  EXPECT_EQ(routed, 1);
  EXPECT_THAT(toasts(blocked), ElementsAre("이미 친구의 코드를 입력했어요."));
  EXPECT_EQ(reports_->names.size(), 4U) << "the tap itself is reported";
}

TEST_F(ReferralCampaignTest, WithoutACampaignOnlyTheTapOnTheBoxIsReported) {
  ReferralCampaignView view;
  view.copyCode();
  view.shareReferralMessage();
  view.showReferralViewController();
  EXPECT_EQ(view.copyTitle, "초대 코드 복사하기");
  EXPECT_EQ(view.joinedCount, "0명");
  EXPECT_THAT(toasts(view), IsEmpty());
  EXPECT_THAT(platform_.texts->pasteboard, IsEmpty());
  EXPECT_THAT(platform_.texts->shared, IsEmpty());
  EXPECT_THAT(reports_->names, ElementsAre("ol_referral_navigation_view_click"));
}

TEST_F(ReferralCampaignTest, TheBoxIsReportedTheFirstTimeThatAnyPartOfItIsInSight) {
  const Rect screen{0, 0, 320, 500};
  ReferralCampaignView view;
  for (const auto& unseen :
       {Rect{20, 500, 280, 56}, Rect{20, -56, 280, 56}, Rect{320, 10, 280, 56}, Rect{20, 10, 280, 0}}) {
    view.didLayOut(unseen, screen);
  }
  view.didLayOut({20, 10, 280, 56}, {});
  EXPECT_THAT(reports_->names, IsEmpty());
  EXPECT_TRUE(view.awaitsNavigateView.value());
  view.didLayOut({20, 499.5, 280, 56}, screen);
  EXPECT_FALSE(view.awaitsNavigateView.value());
  view.didLayOut({20, 900, 280, 56}, screen);
  view.didLayOut({20, 100, 280, 56}, screen);
  EXPECT_THAT(reports_->names, ElementsAre("ol_referral_navigation_view_show"));
}

}  // namespace
}  // namespace orrelo::test
