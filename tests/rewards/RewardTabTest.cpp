#include "RewardsFixture.h"
#include "model/UserManager.h"
#include "network/HTTPClient.h"
#include "rewards/RewardViewController.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A screen around the tab, which records what the tab asks of it.
class Home final : public ViewController, public RewardViewControllerDelegate {
 public:
  std::string_view kind() const override { return "Home"; }
  void add(const std::shared_ptr<ViewController>& tab) { addChild(tab); }

  void startActivityIndicator() override { calls.push_back("start"); }
  void stopActivityIndicator() override { calls.push_back("stop"); }
  void showToast(const std::string& message, const Color& color) override {
    calls.push_back(message + (color == Color() ? " in black" : ""));
  }
  std::vector<std::string> calls;
};

class RecordingRouter final : public PageRouter {
 public:
  void route(const std::shared_ptr<ViewController>& from, const Page& page) override {
    routes.push_back(std::string(from->kind()) + ": " + std::string(page.caseName()));
  }
  std::vector<std::string> routes;
};

class RewardTabTest : public RewardsFixture {
 protected:
  RewardTabTest() {
    replies_["/my-rewards"] = ScriptedURLSession::reply(200, R"({"point":99,"ticket":12,"gifticon":0})");
    const auto scheduler =
        std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::standard);
    viewModel_ = RewardViewModel::create(
        std::make_shared<FetchRewardUseCaseImpl>(std::make_shared<RewardRepositoryImpl>(
            NetworkConfig{"https://api.example/sdk/app", {{"Kelso-UUID", "u"}}},
            std::make_shared<HTTPClientImpl>(), config_, fetchPoint_, scheduler)),
        config_);
    tab_ = RewardViewController::create(viewModel_, router_);
    tab_->delegate = home_;
    home_->add(tab_);
  }

  void appear() {
    home_->disappear(false);
    home_->appear(false);
    platform_.loop->run();
  }
  /// The titles of the buttons that are shown, with their badges.
  std::vector<std::string> shown() const {
    std::vector<std::string> titles;
    if (tab_->state().isHorizontalRewardStackHidden()) return titles;
    for (const auto& button : {tab_->gifticonButton, tab_->externalPointButton, tab_->ticketButton}) {
      const auto& state = button->state.value();
      if (!state.isHidden) titles.push_back(button->title + " " + state.badgeText);
    }
    return titles;
  }
  std::string balance() const {
    const auto& state = tab_->pointView->state.value();
    return state.isHidden ? "" : state.accessibilityLabel;
  }
  std::vector<std::string> reported() const { return std::exchange(reports_->names, {}); }

  std::shared_ptr<RewardViewModel> viewModel_;
  std::shared_ptr<RecordingRouter> router_ = std::make_shared<RecordingRouter>();
  std::shared_ptr<RewardViewController> tab_;
  std::shared_ptr<Home> home_ = std::make_shared<Home>();
};

TEST_F(RewardTabTest, StartsWithoutBadgesAndThenShowsWhatThePluginsSwitchOn) {
  EXPECT_EQ(balance(), "");
  EXPECT_THAT(shown(), ElementsAre("기프티콘 ", "응모권 "));
  EXPECT_EQ(tab_->state().visibleButtonCount, 2);
  appear();
  EXPECT_EQ(balance(), "포인트, 1250 P");
  EXPECT_THAT(shown(), ElementsAre("기프티콘 0", "포인트 전환 ", "응모권 9+"));
  EXPECT_EQ(tab_->state().visibleButtonCount, 3);
  EXPECT_EQ(tab_->gifticonButton->state.value().badgeColor, (Color{0.5, 0.25, 1.0}));
  EXPECT_EQ(tab_->ticketButton->state.value().badgeColor, (Color{0.5, 0.25, 1.0}));
  EXPECT_THAT(home_->calls, ElementsAre("start", "stop"));
  const auto requests = requestsTo("/my-rewards");
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0].url.text(), "https://api.example/sdk/app/my-rewards");
  EXPECT_EQ(requests[0].headers, (HTTPHeaders{{"Kelso-UUID", "u"}, {"buid", "minji"}}));
}

TEST_F(RewardTabTest, ThePluginsDecideWhatIsShownAndReported) {
  auto& plugin = config_->config.plugin;
  const auto all = plugin;
  appear();
  EXPECT_THAT(reported(), ElementsAre("ol_point_view_show", "ol_reward_tab_show"));
  appear();
  EXPECT_THAT(reported(), ElementsAre("ol_point_view_show", "ol_reward_tab_show"))
      << "an equal one reports again";

  plugin = {};
  appear();
  EXPECT_EQ(balance(), "");
  EXPECT_THAT(shown(), IsEmpty()) << "with the tickets alone the row is hidden";
  EXPECT_FALSE(tab_->ticketButton->state.value().isHidden);
  EXPECT_THAT(reported(), IsEmpty());

  plugin.gifticon = true;
  appear();
  EXPECT_THAT(shown(), ElementsAre("기프티콘 0", "응모권 9+"));
  EXPECT_THAT(reported(), ElementsAre("ol_reward_tab_show"));

  plugin = {};
  plugin.externalPointPlugin = all.externalPointPlugin;
  appear();
  EXPECT_THAT(shown(), ElementsAre("포인트 전환 ", "응모권 9+"));

  plugin = {};
  plugin.pointSystem = true;
  appear();
  EXPECT_EQ(balance(), "포인트, 1250 P");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(RewardTabTest, AFailedBalanceIsAbsentAndFailedCountsAreAToast) {
  for (const auto& reply : {ScriptedURLSession::reply(500), ScriptedURLSession::reply(200, "{}")}) {
    replies_["/my-point"] = reply;
    home_->calls.clear();
    appear();
    EXPECT_EQ(balance(), "");
    EXPECT_THAT(shown(), ElementsAre("기프티콘 0", "포인트 전환 ", "응모권 9+"));
    EXPECT_THAT(home_->calls, ElementsAre("start", "stop"));
  }
  const std::string toast = "리워드 정보를 가져오는데 실패했습니다. in black";
  replies_["/my-rewards"] = ScriptedURLSession::reply(500);
  home_->calls.clear();
  appear();
  EXPECT_THAT(home_->calls, ElementsAre("start", "stop", toast));
  EXPECT_EQ(shown().size(), 3U) << "the former rewards stay";

  replies_["/my-rewards"] = ScriptedURLSession::reply(200, R"({"point":0,"ticket":-2,"gifticon":9})");
  appear();
  EXPECT_THAT(shown(), ElementsAre("기프티콘 9", "포인트 전환 ", "응모권 -2"))
      << "a failure does not end the stream";

  setCurrentUserId(std::nullopt);
  home_->calls.clear();
  const auto before = platform_.session->requests.size();
  appear();
  EXPECT_THAT(home_->calls, ElementsAre("start", "stop", toast));
  EXPECT_EQ(platform_.session->requests.size(), before);
}

TEST_F(RewardTabTest, AFailedFirstLoadLeavesTheButtonsThatNeedNoReward) {
  replies_["/my-rewards"] = ScriptedURLSession::reply(500);
  appear();
  EXPECT_EQ(balance(), "");
  EXPECT_THAT(shown(), ElementsAre("기프티콘 ", "응모권 "));
  EXPECT_THAT(reported(), IsEmpty());
  tab_->onClickGifticonButton();
  EXPECT_THAT(router_->routes, ElementsAre("RewardViewController: gifticon"));
}

TEST_F(RewardTabTest, ANewAppearanceEndsTheLoadBefore) {
  replies_["/my-rewards"] = std::nullopt;
  appear();
  replies_["/my-rewards"] = ScriptedURLSession::reply(200, R"({"point":0,"ticket":1,"gifticon":1})");
  appear();
  platform_.session->answer(ScriptedURLSession::reply(200, R"({"point":0,"ticket":5,"gifticon":5})"));
  platform_.loop->run();
  EXPECT_THAT(shown(), ElementsAre("기프티콘 1", "포인트 전환 ", "응모권 1"));
  EXPECT_EQ(platform_.session->cancelled, 1);
}

TEST_F(RewardTabTest, ButtonsOpenTheirPagesAndReportThemselves) {
  appear();
  reported();
  tab_->onClickPointView();
  tab_->onClickGifticonButton();
  tab_->onClickExternalPointButton();
  tab_->onClickTicketButton();
  EXPECT_THAT(router_->routes,
              ElementsAre("RewardViewController: pointRedemptionHistory", "RewardViewController: gifticon",
                          "RewardViewController: externalPointExchange"));
  EXPECT_THAT(reported(),
              ElementsAre("ol_point_view_click", "ol_reward_tab_item_click", "ol_reward_tab_item_click"));
  std::vector<std::string> items;
  for (const auto& event : reports_->events) {
    if (event.name == "ol_reward_tab_item_click")
      items.push_back(std::get<std::string>(event.values->at("reward_tab_item_name").variant()));
  }
  EXPECT_THAT(items, ElementsAre("gifticon", "naverpay"));
}

TEST_F(RewardTabTest, WithoutItsPartsItIsInert) {
  const auto tab = RewardViewController::create(nullptr, nullptr);
  tab->appear(false);
  tab->onClickPointView();
  platform_.loop->run();
  EXPECT_THAT(platform_.session->requests, IsEmpty());

  home_.reset();
  const auto orphan = RewardViewController::create(viewModel_, router_);
  orphan->appear(false);
  platform_.loop->run();
  EXPECT_EQ(orphan->ticketButton->state.value().badgeText, "9+");
}

TEST_F(RewardTabTest, AReleasedModelFailsEachTrigger) {
  reactive::PublishSubject<std::optional<std::string>> trigger;
  std::vector<RewardViewModel::Output> outputs;
  const auto handle = viewModel_->transform({trigger.asObservable().asInfallible(std::nullopt)})
                          .subscribe([&](const auto& output) { outputs.push_back(output); });
  tab_.reset();
  home_.reset();
  viewModel_.reset();
  trigger.onNext("minji");
  ASSERT_EQ(outputs.size(), 2U);
  EXPECT_EQ(outputs[1],
            RewardViewModel::Output(RewardViewModel::Failed{makeError(OrreloError::referenceDeallocation)}));
  handle.dispose();
}

}  // namespace
}  // namespace orrelo::test
