#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "campaign/result/CampaignResultView.h"
#include "campaign/update/InduceUpdateView.h"
#include "kit/CampaignScreenFixture.h"
#include "support/LogCapture.h"
#include "viewkit/CampaignRewardViewController.h"

namespace orrelo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(CampaignScreenTest, AnAttendanceCampaignShowsItsMonth) {
  const auto screen = open();
  ASSERT_TRUE(screen);
  const auto page = content<AttendanceCampaignView>(*screen);
  ASSERT_TRUE(page);
  EXPECT_EQ(screen->title(), "출석체크");
  EXPECT_EQ(screen->modalTopBar(), (ModalTopBar{"출석체크", 44.0}));
  EXPECT_FALSE(screen->state().isLoading);
  EXPECT_EQ(errorOf(*screen), "");
  EXPECT_EQ(page->noticeView->text, "• 하루 한 번만 됩니다.\n• 문의: 고객센터");
  EXPECT_EQ(page->actionView->state.value().title, "출석하기");
  EXPECT_TRUE(page->actionView->state.value().isEnabled);
  const auto month = page->calendarView->state.value();
  EXPECT_EQ(month.monthText, "11월");
  ASSERT_EQ(month.cells.size(), 7u + 35u);
  const auto& today = month.cells[7 + 3 + 13];
  EXPECT_EQ(today.accessibilityLabel, "14일, 오늘");
  const auto& attended = month.cells[7 + 3 + 12];
  EXPECT_EQ(attended.backgroundColor, Color::fromHex("#3366FF"));
  const auto& bonus = month.cells[7 + 3 + 19];
  EXPECT_EQ(bonus.iconUrl, "https://img.example/gift.png");
  EXPECT_EQ(bonus.accessibilityLabel, "20일, 보너스");
  EXPECT_THAT(reports_->names, ElementsAre("ol_visit"));
}

TEST_F(CampaignScreenTest, ACheckInReplacesThePageAndAnnouncesTheReward) {
  const auto screen = open();
  const auto before = content<AttendanceCampaignView>(*screen);
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(
      200, attendancePage("2023-11-14",
                          R"("reward_message":{"title":"축하","body":"10P","button_text":"확인"},)"));
  press(*before);
  const auto after = content<AttendanceCampaignView>(*screen);
  EXPECT_NE(after, before);
  EXPECT_EQ(after->calendarView->state.value().cells[7 + 3 + 13].accessibilityLabel, "14일, 출석, 오늘");
  const auto reward =
      std::dynamic_pointer_cast<CampaignRewardViewController>(screen->presentedViewController());
  ASSERT_TRUE(reward);
  EXPECT_EQ(reward->content.message, "10P");
  EXPECT_THAT(reports_->names,
              ElementsAre("ol_visit", "ol_attendance_button_click", "ol_reward_pop_up_show"));
  reward->close();
  platform_.loop->run();
  EXPECT_EQ(screen->presentedViewController(), nullptr);
  EXPECT_EQ(requests("/campaigns/c-1"), 1u) << "closing a dialog is no reappearance";
  EXPECT_EQ(platform_.session->requestsTo("/check-in").at(0).headers.at("buid"), "minji");
}

TEST_F(CampaignScreenTest, ItLoadsAtEachAppearanceAndIsVisitedOnce) {
  const auto screen = open();
  const auto first = screen->state().content;
  const auto above = std::make_shared<ErrorViewController>("위");
  screen->present(above, false);
  above->dismiss(false);
  platform_.loop->run();
  EXPECT_EQ(requests("/campaigns/c-1"), 2u);
  EXPECT_NE(screen->state().content, first);
  EXPECT_THAT(reports_->names, ElementsAre("ol_visit"));
}

TEST_F(CampaignScreenTest, AnErrorIsShownAndStays) {
  const auto screen = open();
  const auto page = content<AttendanceCampaignView>(*screen);
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(500);
  press(*page);
  EXPECT_EQ(errorOf(*screen), "잠시 후 다시 시도해 주세요.");
  EXPECT_EQ(screen->title(), "이벤트");
  EXPECT_EQ(screen->state().content, page) << "the page stays beneath the error";
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(200, attendancePage());
  press(*page);
  EXPECT_EQ(errorOf(*screen), "잠시 후 다시 시도해 주세요.");
}

TEST_F(CampaignScreenTest, AKindOfTomorrowAsksTheStoreAndTheUserToUpdate) {
  replies_["/campaigns/c-1"] =
      ScriptedURLSession::reply(200, campaignReply(R"({"page_type":"hologram","page_id":"p"})"));
  replies_["/lookup"] = ScriptedURLSession::reply(200, R"({"resultCount":0,"results":[]})");
  const auto screen = open();
  const auto update = content<InduceUpdateView>(*screen);
  ASSERT_TRUE(update);
  EXPECT_EQ(platform_.session->requestsTo("/lookup").at(0).url.host(), "itunes.apple.com");
  reports_->names.clear();
  std::vector<std::string> opened;
  bool canOpen = false;
  platform_.application->setUrlOpener(
      {[&](const Url&) { return canOpen; }, [&](const Url& url) { opened.emplace_back(url.text()); }});
  update->routeToUpdateLink();
  ASSERT_EQ(screen->toastLayer->toasts.value().size(), 1u);
  EXPECT_EQ(screen->toastLayer->toasts.value()[0]->message, "업데이트 페이지 이동에 실패했습니다.");
  EXPECT_THAT(reports_->names, IsEmpty());
  canOpen = true;
  update->routeToUpdateLink();
  EXPECT_THAT(opened, ElementsAre("https://store.example/app"));
  EXPECT_THAT(reports_->names, ElementsAre("ol_induce_update_button_click"));
  host_->dismiss(false);
  platform_.defaults->suite("tamrenzo_api_storage_I'm_Ilvane")->set("ORRELO_SERVICE_URL", std::int64_t{3});
  Orrelo::initialize(ORLConfig("shop"));
  open();
  EXPECT_EQ(platform_.session->requestsTo("/lookup").at(1).url.host(), "localhost");
}

TEST_F(CampaignScreenTest, AnOptInHandsItsScreenToTheHostAndSaysSo) {
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(optInMarketingPage()));
  const auto screen = open();
  const auto page = content<OptInMarketingCampaignView>(*screen);
  ASSERT_TRUE(page);
  EXPECT_EQ(screen->title(), "혜택 알림");
  EXPECT_THAT(reports_->pages, ElementsAre("opt_in_marketing"));
  auto consent = std::make_shared<Consent>(*reports_);
  Orrelo::setOptInMarketingCampaignDelegate(consent);
  reports_->names.clear();
  const LogCapture log;
  page->onTapMoveButton();
  EXPECT_THAT(consent->screens, ElementsAre(screen));
  EXPECT_THAT(consent->reported, IsEmpty()) << "the host is called before the report";
  EXPECT_THAT(reports_->names, ElementsAre("ol_opt_in_marketing_move_button_click"));
  const auto line =
      AllOf(HasSubstr("[DEBUG]"), EndsWith(" (ORLOptInMarketingCampaignDelegate) onMoveButtonTapped:in"));
  EXPECT_THAT(log.lines(), Contains(line).Times(1));
  EXPECT_EQ(requests("/campaigns/c-1"), 1u) << "it loads anew when the host brings it back";

  consent.reset();
  page->onTapMoveButton();
  EXPECT_THAT(log.lines(), Contains(line).Times(2));
  EXPECT_EQ(reports_->names.size(), 2u) << "reported without a host delegate too";
}

TEST(CampaignScreenBeforeInitialize, IsAScreenThatAsksToTryAgain) {
  const auto screen =
      std::dynamic_pointer_cast<ErrorViewController>(Orrelo::getCampaignViewController("c-1"));
  ASSERT_TRUE(screen);
  EXPECT_EQ(screen->message, "잠시 후 다시 시도해주세요.");
}

}  // namespace
}  // namespace orrelo::test
