// Dialogs over a campaign screen, and its navigation bar.
#include "campaign/result/CampaignResultView.h"
#include "kit/CampaignScreenFixture.h"
#include "ui/NavigationController.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/PopUpDialogViewController.h"

namespace orrelo::test {
namespace {

using testing::ElementsAre;

class CampaignPlaceTest : public CampaignScreenTest {};

constexpr auto dialog =
    R"("pop_up":{"title":"당첨!","label":"축하해요","image_url":"https://img.example/w.png","button_text":"x"},)";

TEST_F(CampaignPlaceTest, AResultsDialogComesOnce) {
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(resultPage(dialog)));
  for (const bool isFirst : {true, false}) {
    const auto screen = open();
    const auto page = content<CampaignResultView>(*screen);
    ASSERT_TRUE(page);
    const auto shown =
        std::dynamic_pointer_cast<PopUpDialogViewController>(screen->presentedViewController());
    EXPECT_EQ(shown != nullptr, isFirst);
    host_->dismiss(false);
  }
  EXPECT_THAT(reports_->pages, ElementsAre("result", "campaign_result_pop_up_dialog", "result"));
}

TEST_F(CampaignPlaceTest, ADialogThatCannotBeSeenCountsAsNotShown) {
  replies_["/campaigns/c-1"] = std::nullopt;
  const auto gone = open();
  gone->close();
  platform_.session->answer(ScriptedURLSession::reply(200, campaignReply(resultPage(dialog))));
  platform_.loop->run();
  EXPECT_EQ(gone->presentedViewController(), nullptr);

  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(attendancePage()));
  const auto screen = open();
  const auto above = std::make_shared<CampaignRewardViewController>(CampaignRewardViewController::Content{});
  ASSERT_TRUE(screen->present(above, false));
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(200, resultPage(dialog));
  press(*content<AttendanceCampaignView>(*screen));
  EXPECT_EQ(screen->presentedViewController(), above) << "a screen presents one at a time";
  above->close();

  host_->dismiss(false);
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(resultPage(dialog)));
  EXPECT_TRUE(open()->presentedViewController()) << "it was not shown yet";
}

TEST_F(CampaignPlaceTest, NoKindShowsADialogOverAScreenThatWasTakenAway) {
  const std::string toast =
      R"({"page_type":"box","page_id":"p-3","page_details_v2":{"page_config":{"layout":{
        "component_order":["blank"],"dialog":{"toast":[{"text":"도착","color":"#000000"}]}}},
        "blank":[10]}})";
  const auto reward =
      attendancePage("", R"("reward_message":{"title":"축하","body":"10P","button_text":"확인"},)");
  for (const auto& page : {toast, reward, resultPage(dialog)}) {
    replies_["/campaigns/c-1"] = std::nullopt;
    const auto gone = open();
    gone->close();
    platform_.session->answer(ScriptedURLSession::reply(200, campaignReply(page)));
    platform_.loop->run();
    ASSERT_TRUE(gone->state().content) << "the reply has come: " << page;
    EXPECT_EQ(gone->presentedViewController(), nullptr) << page;
    EXPECT_EQ(host_->presentedViewController(), nullptr) << page;
    EXPECT_THAT(gone->toastLayer->toasts.value(), testing::IsEmpty()) << page;
  }
}

TEST_F(CampaignPlaceTest, ARootScreenShowsItsRewardAboveTheScreenThatCoversIt) {
  const auto screen =
      std::dynamic_pointer_cast<CampaignViewController>(Orrelo::getCampaignViewController("c-1"));
  screen->appear(false);
  platform_.loop->run();
  replies_["/attendance/c-1/check-in"] = std::nullopt;
  press(*content<AttendanceCampaignView>(*screen));
  const auto above = std::make_shared<ErrorViewController>("위");
  screen->present(above, false);
  ASSERT_FALSE(screen->isVisible());
  platform_.session->answer(ScriptedURLSession::reply(
      200, attendancePage("2023-11-14",
                          R"("reward_message":{"title":"축하","body":"10P","button_text":"확인"},)")));
  platform_.loop->run();
  EXPECT_TRUE(std::dynamic_pointer_cast<CampaignRewardViewController>(above->presentedViewController()));
}

TEST_F(CampaignPlaceTest, AHostsStackGetsTheScreenUnderItsOwnBar) {
  const auto root = std::make_shared<ErrorViewController>("앱");
  const auto navigation = NavigationController::create(root);
  navigation->appear(false);
  replies_["/campaigns"] = ScriptedURLSession::reply(200, "[" + campaignReply(attendancePage()) + "]");
  Orrelo::showCampaign(ORLCampaignType::attendance, root);
  platform_.loop->run();
  const auto screen = std::dynamic_pointer_cast<CampaignViewController>(navigation->topViewController());
  ASSERT_TRUE(screen);
  EXPECT_EQ(errorOf(*screen), "");
  EXPECT_TRUE(content<AttendanceCampaignView>(*screen));
  EXPECT_EQ(screen->modalTopBar().height, 0.0);
  screen->close();
  EXPECT_EQ(navigation->topViewController(), root);
}

TEST_F(CampaignPlaceTest, AVisitLeavesAHostsBarAsItWas) {
  using Attributes = NavigationController::TitleTextAttributes;
  const auto root = std::make_shared<HostViewController>();
  const auto navigation = NavigationController::create(root);
  navigation->setTitleTextAttributes(Attributes{{0.9, 0.1, 0.1}});
  navigation->appear(false);
  const auto before = navigation->state().titleTextAttributes;
  for (const bool isHidden : {false, true}) {
    navigation->setNavigationBarHidden(isHidden);
    Orrelo::showCampaign("c-1", root);
    platform_.loop->run();
    EXPECT_EQ(navigation->state().titleTextAttributes == before, isHidden);
    navigation->topViewController()->close();
    EXPECT_EQ(navigation->state().titleTextAttributes, before);
  }
}

TEST_F(CampaignPlaceTest, AMissingTitleCollapsesTheBarForGood) {
  const auto titleless = attendancePage();
  auto page = titleless;
  page.replace(page.find("\"toolbar_text\""), 14, "\"no_text\"");
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(page));
  const auto screen = open();
  EXPECT_EQ(screen->modalTopBar().height, 0.0);
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(200, titleless);
  press(*content<AttendanceCampaignView>(*screen));
  EXPECT_EQ(screen->title(), "출석체크");
  EXPECT_EQ(screen->modalTopBar().height, 0.0);
}

}  // namespace
}  // namespace orrelo::test
