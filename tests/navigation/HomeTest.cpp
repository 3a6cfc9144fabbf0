#include "base/Logger.h"
#include "campaign/CampaignViewController.h"
#include "navigation/HomeViewController.h"
#include "support/Reports.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "ui/NavigationController.h"
#include "viewkit/ErrorViewController.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>
#include <map>
#include <optional>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Plugins {
  bool pointSystem = false;
  bool naverpay = false;
  bool gifticon = false;
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const auto at = text.find(from);
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string configWith(const Plugins& plugins) {
  const auto flag = [](bool isTrue) { return std::string(isTrue ? "true" : "false"); };
  auto reply =
      replaced(configReply(), R"("pointsystem":true)", R"("pointsystem":)" + flag(plugins.pointSystem));
  reply = replaced(reply, R"("gifticon":false)", R"("gifticon":)" + flag(plugins.gifticon));
  return replaced(reply, R"("is_enabled":true)", R"("is_enabled":)" + flag(plugins.naverpay));
}

std::string campaigns(int count) {
  std::string list;
  for (int i = 0; i < count; ++i) {
    list += (i == 0 ? "" : ",") + campaignReply(attendancePage(), "c-" + std::to_string(i + 1));
  }
  return "[" + list + "]";
}

/// Home through the façade; the service replies by path, or not at all.
class HomeTest : public testing::Test {
 protected:
  HomeTest() {
    answer("/config", configWith({.pointSystem = true, .naverpay = true, .gifticon = true}));
    answer("/campaigns", campaigns(2));
    answer("/campaigns/c-1", campaignReply(attendancePage()));
    answer("/my-rewards", R"({"point":1200,"ticket":3,"gifticon":12})");
    answer("/my-point", R"({"amount":1200,"description":"포인트","point_unit":"P","icon_url":""})");
    platform_.session->responder = [this](const URLRequest& request) -> std::optional<URLSessionResult> {
      for (const auto& [path, reply] : replies_) {
        if (request.url.path().ends_with(path)) return reply;
      }
      return ScriptedURLSession::reply(200);
    };
    Orrelo::setUserEventDelegate(reports_);
  }

  void initialize() {
    Orrelo::initialize(ORLConfig("shop"));
    signIn("minji");
    host_->appear(false);
    platform_.loop->run();
    reports_->names.clear();
    reports_->pages.clear();
  }
  void signIn(const char* id) {
    Orrelo::setUser(id == nullptr ? std::nullopt
                                  : std::optional(ORLUser(id, ORLMarketingStatus::unknown, {})));
  }
  void answer(const std::string& path, const std::string& body, int status = 200) {
    replies_[path] = ScriptedURLSession::reply(status, body);
  }
  /// Shows home from the host's screen and returns the screen that was opened.
  std::shared_ptr<ViewController> show() {
    Orrelo::showHome(host_);
    platform_.loop->run();
    return host_->presentedViewController();
  }
  std::shared_ptr<HomeViewController> home() { return std::dynamic_pointer_cast<HomeViewController>(show()); }
  static std::string errorOf(const HomeViewController& screen) {
    const auto& state = screen.errorView->state.value();
    return state.isHidden ? "" : state.text;
  }
  std::size_t asked(const std::string& path) const { return platform_.session->requestsTo(path).size(); }

  TestPlatform platform_;
  std::map<std::string, std::optional<URLSessionResult>> replies_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

TEST_F(HomeTest, OneCampaignWithoutPluginsOpensInPlaceOfHome) {
  struct Case {
    Plugins plugins;
    int campaigns;
    std::string_view opened;
  };
  const std::vector<Case> cases{
      {{}, 0, "HomeViewController"},
      {{}, 1, "CampaignViewController"},
      {{}, 2, "HomeViewController"},
      {{.pointSystem = true}, 1, "HomeViewController"},
      {{.naverpay = true}, 1, "HomeViewController"},
      {{.gifticon = true}, 1, "HomeViewController"},
      {{.pointSystem = true, .naverpay = true, .gifticon = true}, 0, "HomeViewController"},
  };
  for (const auto& each : cases) {
    answer("/config", configWith(each.plugins));
    answer("/campaigns", campaigns(each.campaigns));
    initialize();
    const auto opened = show();
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->kind(), each.opened) << each.campaigns;
    EXPECT_EQ(opened->modalPresentationStyle, ModalPresentationStyle::fullScreen);
    host_->dismiss(false);
  }
}

TEST_F(HomeTest, AFailureOpensAnErrorScreenInItsOwnWords) {
  initialize();
  const auto message = [this] {
    const auto screen = std::dynamic_pointer_cast<ErrorViewController>(show());
    host_->dismiss(false);
    return screen ? screen->message : "";
  };
  signIn(nullptr);
  EXPECT_EQ(message(), "로그인 후 다시 시도해주세요.");
  EXPECT_EQ(asked("/campaigns"), 0U);
  signIn("minji");
  answer("/campaigns", "", 500);
  EXPECT_EQ(message(), "잠시 후 다시 시도해주세요.");
  answer("/campaigns", R"([{"id":1}])");
  EXPECT_EQ(message(), "잠시 후 다시 시도해주세요.");
}

TEST_F(HomeTest, EachCallFetchesAndOpensItsOwnScreen) {
  initialize();
  const auto navigation = NavigationController::create(host_);
  navigation->appear(false);
  Orrelo::showHome(host_);
  Orrelo::showHome(host_);
  platform_.loop->run();
  EXPECT_EQ(navigation->state().viewControllers.size(), 3U) << "a screen on a stack pushes";
  EXPECT_EQ(navigation->topViewController()->kind(), "HomeViewController");
  const auto other = std::make_shared<HostViewController>();
  other->appear(false);
  Orrelo::showHome(other);
  Orrelo::showHome(other);
  const auto before = asked("/campaigns");
  platform_.loop->run();
  ASSERT_TRUE(other->presentedViewController());
  EXPECT_FALSE(other->presentedViewController()->presentedViewController()) << "the second is refused";
  EXPECT_EQ(asked("/campaigns"), before + 3) << "one for each call and one for the screen that has appeared";
  Orrelo::showHome(nullptr);
  auto gone = std::make_shared<HostViewController>();
  const std::weak_ptr<HostViewController> weak = gone;
  Orrelo::showHome(gone);
  gone.reset();
  reports_->pages.clear();
  platform_.loop->run();
  EXPECT_TRUE(weak.expired());
  EXPECT_THAT(reports_->pages, IsEmpty()) << "no screen has appeared";
  EXPECT_EQ(navigation->state().viewControllers.size(), 3U);
}

TEST_F(HomeTest, ContainsTheRewardsAboveTheCampaigns) {
  initialize();
  const auto screen = home();
  ASSERT_TRUE(screen);
  EXPECT_EQ(screen->title(), "이벤트");
  EXPECT_THAT(reports_->pages, ElementsAre("home"));
  EXPECT_EQ(screen->rewardViewController()->parent(), screen);
  EXPECT_EQ(screen->campaignListViewController()->parent(), screen);
  EXPECT_EQ(screen->campaignListViewController()->state().cells.size(), 2U);
  EXPECT_EQ(screen->rewardViewController()->gifticonButton->state.value().badgeText, "9+");
  EXPECT_EQ(errorOf(*screen), "");
  EXPECT_FALSE(screen->state().isLoading);
  const auto before = asked("/my-rewards");
  screen->refresh();
  platform_.loop->run();
  EXPECT_EQ(asked("/my-rewards"), before + 1);
  EXPECT_EQ(asked("/campaigns"), 3U) << "the decision, the first appearance, and the refresh";
}

TEST_F(HomeTest, APartThatFailsOrNeverComesLeavesTheOther) {
  initialize();
  const auto screen = home();
  ASSERT_TRUE(screen);
  const auto reload = [&](const std::string& path, std::optional<URLSessionResult> reply) {
    const auto kept = std::exchange(replies_[path], std::move(reply));
    screen->refresh();
    platform_.loop->run();
    replies_[path] = kept;
  };
  reload("/campaigns", ScriptedURLSession::reply(500));
  EXPECT_EQ(errorOf(*screen), "잠시 후 다시 시도해 주세요.");
  EXPECT_FALSE(screen->rewardViewController()->state().isHorizontalRewardStackHidden());
  reload("/campaigns", ScriptedURLSession::reply(200, "[]"));
  EXPECT_EQ(errorOf(*screen), "진행 중인 캠페인이 없습니다.");
  EXPECT_THAT(screen->campaignListViewController()->state().cells, IsEmpty());
  const auto& list = screen->campaignListViewController()->state();
  const auto before = list.loadCount;
  reload("/my-rewards", ScriptedURLSession::reply(500));
  EXPECT_EQ(errorOf(*screen), "") << "a later list hides the message";
  EXPECT_EQ(list.loadCount, before + 1);
  EXPECT_EQ(screen->campaignListViewController()->state().cells.size(), 2U);
  ASSERT_EQ(screen->toastLayer->toasts.value().size(), 1U);
  EXPECT_EQ(screen->toastLayer->toasts.value()[0]->message, "리워드 정보를 가져오는데 실패했습니다.");
  reload("/my-point", ScriptedURLSession::reply(500));
  EXPECT_TRUE(screen->rewardViewController()->pointView->state.value().isHidden);
  EXPECT_EQ(list.loadCount, before + 2);
  reload("/my-rewards", std::nullopt);
  EXPECT_EQ(list.loadCount, before + 3);
  reload("/campaigns", std::nullopt);
  EXPECT_FALSE(screen->rewardViewController()->pointView->state.value().isHidden);
  signIn(nullptr);
  screen->refresh();
  platform_.loop->run();
  EXPECT_EQ(errorOf(*screen), "로그인 후 다시 시도해 주세요.");
}

TEST_F(HomeTest, ComingBackLoadsBothPartsAgain) {
  initialize();
  const auto screen = home();
  ASSERT_TRUE(screen);
  screen->campaignListViewController()->didSelect(*screen->campaignListViewController()->state().cells[0]);
  platform_.loop->run();
  const auto campaign = std::dynamic_pointer_cast<CampaignViewController>(screen->presentedViewController());
  ASSERT_TRUE(campaign);
  const auto rewards = asked("/my-rewards");
  const auto lists = asked("/campaigns");
  campaign->close();
  platform_.loop->run();
  EXPECT_EQ(asked("/my-rewards"), rewards + 1);
  EXPECT_EQ(asked("/campaigns"), lists + 1);
}

TEST(HomeBeforeInitialize, IsAScreenThatAsksToTryAgain) {
  TestPlatform platform;
  const auto reports = std::make_shared<Reports>();
  Orrelo::setUserEventDelegate(reports);
  const auto screen =
      std::dynamic_pointer_cast<HomeViewController>(Orrelo::asInterface().getHomeViewController());
  ASSERT_TRUE(screen);
  screen->appear(false);
  screen->refresh();
  platform.loop->run();
  EXPECT_FALSE(screen->errorView->state.value().isHidden);
  EXPECT_EQ(screen->errorView->state.value().text, "잠시 후 다시 시도해주세요");
  EXPECT_THAT(platform.session->requests, IsEmpty());
  EXPECT_THAT(reports->pages, ElementsAre("home"));
  Orrelo::initialize(ORLConfig("shop"));
  screen->refresh();
  platform.loop->run();
  EXPECT_EQ(platform.session->requestsTo("/campaigns").size(), 0U) << "it has taken the kit when it loaded";
}

}  // namespace
}  // namespace orrelo::test
