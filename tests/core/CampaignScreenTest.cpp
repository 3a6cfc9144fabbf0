#include "campaign/CampaignViewController.h"
#include "campaign/attendance/AttendanceCampaignView.h"
#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "campaign/result/CampaignResultView.h"
#include "campaign/update/InduceUpdateView.h"
#include "support/LogCapture.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/ErrorViewController.h"
#include "viewkit/PopUpDialogViewController.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

class Reports final : public ORLUserEventDelegate {
 public:
  void userEventDidOccur(const ORLUserEvent& event) override {
    names.push_back(event.name);
    if (!event.values || !event.values->contains("page_name")) return;
    pages.push_back(std::get<std::string>(event.values->at("page_name").variant()));
  }
  std::vector<std::string> pages;
  std::vector<std::string> names;
};

// Notes where it was called, and what had been reported by then.
class Consent final : public ORLOptInMarketingCampaignDelegate {
 public:
  explicit Consent(const Reports& reports) : reports_(reports) {}
  void onMoveButtonTapped(const std::shared_ptr<ViewController>& in) override {
    screens.push_back(in);
    reported = reports_.names;
  }
  std::vector<std::shared_ptr<ViewController>> screens;
  std::vector<std::string> reported;

 private:
  const Reports& reports_;
};

// From the façade's call to what the screen shows, with the service's replies by path.
class CampaignScreenTest : public testing::Test {
 protected:
  CampaignScreenTest() {
    replies_["/config"] = ScriptedURLSession::reply(200, configReply());
    replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(attendancePage()));
    platform_.session->responder = [this](const URLRequest& request) -> std::optional<URLSessionResult> {
      for (const auto& [path, reply] : replies_) {
        if (request.url.path().ends_with(path)) return reply;
      }
      return ScriptedURLSession::reply(200);
    };
    Orrelo::setUserEventDelegate(reports_);
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
    host_->appear(false);
    platform_.loop->run();
    reports_->names.clear();
  }

  std::shared_ptr<CampaignViewController> open() {
    Orrelo::showCampaign("c-1", host_);
    platform_.loop->run();
    return std::dynamic_pointer_cast<CampaignViewController>(host_->presentedViewController());
  }
  template <class Content>
  static std::shared_ptr<Content> content(const CampaignViewController& screen) {
    return std::dynamic_pointer_cast<Content>(screen.state().content);
  }
  void press(const AttendanceCampaignView& page) {
    page.actionView->onClick();
    platform_.loop->run();
  }
  std::size_t requests(const std::string& path) const { return platform_.session->requestsTo(path).size(); }
  static std::string errorOf(const CampaignViewController& screen) {
    const auto state = screen.errorView->state.value();
    return state.isHidden ? "" : state.text;
  }

  TestPlatform platform_;
  std::map<std::string, std::optional<URLSessionResult>> replies_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

TEST_F(CampaignScreenTest, AnAttendanceCampaignShowsItsMonth) {
  const auto screen = open();
  ASSERT_TRUE(screen);
  const auto page = content<AttendanceCampaignView>(*screen);
  ASSERT_TRUE(page);
  EXPECT_EQ(screen->title(), "출석체크");
  EXPECT_EQ(screen->modalTopBar(), (ModalTopBar{"출석체크", 44.0}));
  EXPECT_FALSE(screen->state().isLoading);
  EXPECT_EQ(errorOf(*screen), "");
  EXPECT_EQ(page->infoView->state.value().guideTitle, "출석체크 안내");
  EXPECT_EQ(page->infoView->imageView->state.value().asset, "orl_ic_attendance");
  EXPECT_EQ(page->noticeView->body.value(), "• 하루 한 번만 됩니다.\n• 문의: 고객센터");
  const auto action = page->actionView->state.value();
  EXPECT_EQ(action.title, "출석하기");
  EXPECT_TRUE(action.isEnabled);
  EXPECT_EQ(action.color, Color::fromHex("#3366FF"));

  const auto month = page->calendarView->state.value();
  EXPECT_EQ(month.monthText, "11월");
  EXPECT_EQ(month.secondDescription, "2일 출석");
  ASSERT_EQ(month.cells.size(), 7u + 35u);
  const auto& today = month.cells[7 + 3 + 13];
  EXPECT_EQ(today.day, "14");
  EXPECT_EQ(today.bottomText, "오늘");
  EXPECT_EQ(today.borderWidth, 2.0);
  EXPECT_EQ(today.accessibilityLabel, "14일, 오늘");
  const auto& attended = month.cells[7 + 3 + 12];
  EXPECT_EQ(attended.backgroundColor, Color::fromHex("#3366FF"));
  EXPECT_EQ(attended.dayColor, (Color{1.0, 1.0, 1.0, 1.0}));
  const auto& bonus = month.cells[7 + 3 + 19];
  EXPECT_EQ(bonus.iconUrl, "https://img.example/gift.png");
  EXPECT_EQ(bonus.day, "");
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
  EXPECT_EQ(reward->content.color, Color::fromHex("#3366FF"));
  EXPECT_THAT(reports_->names,
              ElementsAre("ol_visit", "ol_attendance_button_click", "ol_reward_pop_up_show"));
  reward->close();
  platform_.loop->run();
  EXPECT_EQ(screen->presentedViewController(), nullptr);
  EXPECT_EQ(requests("/campaigns/c-1"), 1u);  // a dialog's end is no reappearance
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

TEST_F(CampaignScreenTest, WhatWentWrongIsSaidAndStays) {
  const auto screen = open();
  const auto page = content<AttendanceCampaignView>(*screen);
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(500);
  press(*page);
  EXPECT_EQ(errorOf(*screen), "잠시 후 다시 시도해 주세요.");
  EXPECT_EQ(screen->title(), "이벤트");
  EXPECT_EQ(screen->state().content, page);  // beneath
  replies_["/attendance/c-1/check-in"] = ScriptedURLSession::reply(200, attendancePage());
  press(*page);
  EXPECT_EQ(errorOf(*screen), "잠시 후 다시 시도해 주세요.");
}

TEST_F(CampaignScreenTest, NobodySignedInSeesWhyAndNothingIsAsked) {
  Orrelo::setUser(std::nullopt);
  const auto screen = open();
  EXPECT_EQ(errorOf(*screen), "로그인 후 다시 시도해 주세요.");
  EXPECT_EQ(requests("/campaigns/c-1"), 0u);
  EXPECT_FALSE(screen->state().isLoading);
}

TEST_F(CampaignScreenTest, TheIndicatorTurnsWhileTheServiceThinks) {
  replies_["/campaigns/c-1"] = std::nullopt;
  const auto screen = open();
  EXPECT_TRUE(screen->state().isLoading);
  EXPECT_EQ(screen->state().content, nullptr);
  platform_.session->answer(ScriptedURLSession::reply(200, campaignReply(attendancePage())));
  platform_.loop->run();
  EXPECT_FALSE(screen->state().isLoading);
  EXPECT_TRUE(screen->state().content);
}

TEST_F(CampaignScreenTest, AResultsDialogComesOnce) {
  constexpr auto dialog =
      R"("pop_up":{"title":"당첨!","label":"축하해요","image_url":"https://img.example/w.png","button_text":"x"},)";
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(resultPage(dialog)));
  for (const bool isFirst : {true, false}) {
    const auto screen = open();
    const auto page = content<CampaignResultView>(*screen);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->name, "11월 출석");
    const auto shown =
        std::dynamic_pointer_cast<PopUpDialogViewController>(screen->presentedViewController());
    EXPECT_EQ(shown != nullptr, isFirst);
    host_->dismiss(false);
  }
  EXPECT_THAT(reports_->pages, ElementsAre("result", "campaign_result_pop_up_dialog", "result"));
}

TEST_F(CampaignScreenTest, ADialogThatCannotBeSeenCountsAsNotShown) {
  constexpr auto dialog =
      R"("pop_up":{"title":"당첨!","label":"축하해요","image_url":"https://img.example/w.png","button_text":"x"},)";
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
  EXPECT_EQ(screen->presentedViewController(), above) << "one at a time";
  above->close();

  host_->dismiss(false);
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(resultPage(dialog)));
  EXPECT_TRUE(open()->presentedViewController()) << "nobody has seen it yet";
}

TEST_F(CampaignScreenTest, AWindowsFirstScreenHasItsPlaceWhileItIsCovered) {
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

TEST_F(CampaignScreenTest, AKindThatItCannotShowGivesWayToTheNextCampaign) {
  replies_["/lookup"] = ScriptedURLSession::reply(200, R"({"resultCount":0,"results":[]})");
  replies_["/campaigns/c-1"] =
      ScriptedURLSession::reply(200, campaignReply(R"({"page_type":"hologram","page_id":"p"})"));
  const auto screen = open();
  EXPECT_TRUE(content<InduceUpdateView>(*screen));
  EXPECT_EQ(screen->title(), "이벤트");
  replies_["/campaigns/c-1"] = ScriptedURLSession::reply(200, campaignReply(attendancePage()));
  const auto appearAgain = [&] {
    host_->presentedViewController()->disappear(false);
    host_->presentedViewController()->appear(false);
    platform_.loop->run();
  };
  appearAgain();
  EXPECT_EQ(errorOf(*screen), "");
  EXPECT_TRUE(content<AttendanceCampaignView>(*screen));
  EXPECT_EQ(screen->title(), "출석체크");
}

TEST_F(CampaignScreenTest, AKindOfTomorrowAsksTheStoreAndTheUserToUpdate) {
  replies_["/campaigns/c-1"] =
      ScriptedURLSession::reply(200, campaignReply(R"({"page_type":"hologram","page_id":"p"})"));
  replies_["/lookup"] = ScriptedURLSession::reply(200, R"({"resultCount":0,"results":[]})");
  const auto screen = open();
  const auto update = content<InduceUpdateView>(*screen);
  ASSERT_TRUE(update);
  EXPECT_EQ(platform_.session->requestsTo("/lookup").at(0).url.host(), "itunes.apple.com");
  EXPECT_EQ(update->color, Color::fromHex("#FF0000"));
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
  EXPECT_THAT(consent->reported, IsEmpty()) << "the host first";
  EXPECT_THAT(reports_->names, ElementsAre("ol_opt_in_marketing_move_button_click"));
  const auto line =
      AllOf(HasSubstr("[DEBUG]"), EndsWith(" (ORLOptInMarketingCampaignDelegate) onMoveButtonTapped:in"));
  EXPECT_THAT(log.lines(), Contains(line).Times(1));
  EXPECT_EQ(requests("/campaigns/c-1"), 1u) << "it loads anew when the host brings it back";

  consent.reset();
  page->onTapMoveButton();
  EXPECT_THAT(log.lines(), Contains(line).Times(2));
  EXPECT_EQ(reports_->names.size(), 2u) << "said also where no host listens";
}

TEST_F(CampaignScreenTest, AHostsStackGetsTheScreenUnderItsOwnBar) {
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
  EXPECT_EQ(screen->modalPresentationStyle, ModalPresentationStyle::fullScreen);
  EXPECT_EQ(navigation->state().titleTextAttributes->foregroundColor, Color());
  screen->close();
  EXPECT_EQ(navigation->topViewController(), root);
}

TEST_F(CampaignScreenTest, AVisitLeavesAHostsBarAsItWas) {
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
  // As the only screen of a stack without a bar it has none of its own either, and leaves with the stack.
  const auto alone = Orrelo::getCampaignViewController("c-1");
  const auto stack = NavigationController::create(alone);
  stack->setNavigationBarHidden(true);
  host_->present(stack, false);
  platform_.loop->run();
  EXPECT_EQ(std::dynamic_pointer_cast<CampaignViewController>(alone)->modalTopBar().height, 0.0);
  alone->close();
  EXPECT_EQ(host_->presentedViewController(), nullptr);
}

TEST_F(CampaignScreenTest, WithoutATitleTheBarCollapsesForGood) {
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

TEST_F(CampaignScreenTest, ATooltipExplainsTheGuide) {
  const auto screen = open();
  const auto info = content<AttendanceCampaignView>(*screen)->infoView;
  EXPECT_TRUE(info->tooltipView->state.value().isHidden);
  info->guideLabelTapped();
  EXPECT_EQ(info->tooltipView->state.value().text, "하루에 한 번 출석할 수 있어요.");
  EXPECT_FALSE(info->tooltipView->state.value().isHidden);
  info->tooltipView->handleTapAction();
  EXPECT_TRUE(info->tooltipView->state.value().isHidden);
  EXPECT_EQ(reports_->names.back(), "ol_tooltip_show");
}

TEST(CampaignScreenBeforeInitialize, IsAScreenThatAsksToTryAgain) {
  const auto screen =
      std::dynamic_pointer_cast<ErrorViewController>(Orrelo::getCampaignViewController("c-1"));
  ASSERT_TRUE(screen);
  EXPECT_EQ(screen->message, "잠시 후 다시 시도해주세요.");
  EXPECT_EQ(screen->modalPresentationStyle, ModalPresentationStyle::fullScreen);
}

}  // namespace
}  // namespace orrelo::test
