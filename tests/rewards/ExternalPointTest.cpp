#include "model/UserManager.h"
#include "rewards/externalpoint/ExternalPointEntryView.h"
#include "rewards/externalpoint/ExternalPointExchangeViewController.h"
#include "rewards/externalpoint/ExternalPointRouter.h"
#include "rewards/externalpoint/RightSwipe.h"
#include "support/FixedConfig.h"
#include "support/LogCapture.h"
#include "support/TestPlatform.h"
#include "ui/CampaignNavigator.h"
#include "ui/RunningKit.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Exchange = ExternalPointExchangeViewController;

const ExternalPointPlugin::Enabled enabled{"포인트를 모았어요", "교환하기",
                                           "https://points.example/exchange"};

std::shared_ptr<Exchange> presentedBy(const ViewController& presenting) {
  return std::dynamic_pointer_cast<Exchange>(presenting.presentedViewController());
}

class ExternalPointTest : public testing::Test {
 protected:
  ExternalPointTest() {
    config_->config.plugin.externalPointPlugin = ExternalPointPlugin(enabled);
    host_->appear(false);
  }
  ~ExternalPointTest() override {
    RunningKit::makeCurrent(nullptr);
    setCurrentUserId(std::nullopt);
  }

  std::shared_ptr<Exchange> present(const std::string& landingUrl = enabled.landingUrl) {
    const auto screen = std::make_shared<Exchange>(landingUrl);
    host_->present(screen, false);
    return screen;
  }
  std::string pageOf(const std::string& landingUrl) {
    const auto screen = std::make_shared<Exchange>(landingUrl);
    screen->loadViewIfNeeded();
    return screen->webView() ? screen->webView()->url.text() : "nothing";
  }

  TestPlatform platform_;
  const std::shared_ptr<FixedConfig> config_ = std::make_shared<FixedConfig>();
  const std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

TEST_F(ExternalPointTest, TheUserIsTheOnlyQueryItemOfTheLandingPage) {
  EXPECT_EQ(pageOf("https://a.example/x"), "https://a.example/x?userID");
  setCurrentUserId("");
  EXPECT_EQ(pageOf("https://a.example/x?"), "https://a.example/x?userID=");
  setCurrentUserId("김 a+b&c=d/?#%");
  EXPECT_EQ(pageOf("HTTP://a.example:8080/x%20y?a=1&userID=2#top?x"),
            "HTTP://a.example:8080/x%20y?userID=%EA%B9%80%20a%2Bb%26c%3Dd%2F%3F%23%25#top?x");
  for (const auto* const other :
       {"", "a.example", "/x", "https://", "https://a.example/x y", "file:///etc/hosts",
        "javascript:alert(1)", "shop://sale", "data:text/html,x"}) {
    EXPECT_EQ(pageOf(other), "nothing") << other;
  }
}

TEST_F(ExternalPointTest, TheIndicatorTurnsUntilANavigationHasFinished) {
  const auto screen = present();
  EXPECT_EQ(screen->modalPresentationStyle, ModalPresentationStyle::fullScreen);
  EXPECT_EQ(screen->modalTransitionStyle, ModalTransitionStyle::crossDissolve);
  EXPECT_TRUE(screen->isIndicatorAnimating.value());
  screen->didStartNavigation();
  screen->didReceiveData();
  screen->didFinishNavigation();
  screen->didReceiveData();
  EXPECT_FALSE(screen->isIndicatorAnimating.value());
  screen->webView()->processDidEnd();
  EXPECT_FALSE(screen->isIndicatorAnimating.value()) << "a failure leaves it as it is";
  screen->didStartNavigation();
  EXPECT_FALSE(screen->isIndicatorAnimating.value()) << "nothing has arrived";
  screen->didReceiveData();
  EXPECT_TRUE(screen->isIndicatorAnimating.value());
  screen->webView()->didStart();
  platform_.loop->runFor(61s);
  EXPECT_TRUE(screen->isIndicatorAnimating.value());
}

TEST_F(ExternalPointTest, AHundredMessagesDismissThisScreenAlone) {
  const auto below = std::make_shared<HostViewController>();
  host_->present(below, false);
  const auto screen = std::make_shared<Exchange>(enabled.landingUrl);
  below->present(screen, false);
  for (const EventValue& body : {EventValue("Close"), EventValue("close "), EventValue(nullptr),
                                 EventValue(1), EventValue(EventDictionary{{"close", true}})}) {
    screen->didReceiveScriptMessage(body);
    EXPECT_TRUE(below->presentedViewController());
  }
  for (int i = 0; i < 100; ++i) screen->didReceiveScriptMessage("close");
  EXPECT_FALSE(below->presentedViewController());
  EXPECT_TRUE(below->presented().animated);
  EXPECT_EQ(host_->presentedViewController(), below);
}

TEST_F(ExternalPointTest, ASwipeGoesBackInTheHistoryAndThenLeaves) {
  const auto screen = present();
  EXPECT_TRUE(screen->onWebViewSwipeRight(true));
  EXPECT_TRUE(presentedBy(*host_));
  EXPECT_EQ(screen->transition(), std::nullopt);
  EXPECT_FALSE(screen->onWebViewSwipeRight(false));
  EXPECT_FALSE(host_->presentedViewController());
  EXPECT_FALSE(host_->presented().animated);
  EXPECT_EQ(screen->transition(), (Transition{Transition::Type::reveal, Transition::Subtype::fromLeft, 200ms,
                                              Animation::Curve::easeInOut}));
  const auto other = present();
  other->close();
  EXPECT_TRUE(host_->presented().animated) << "Escape leaves whatever the history is";
  EXPECT_EQ(other->transition(), std::nullopt);
}

TEST_F(ExternalPointTest, ASwipeIsAQuickMovementToTheRight) {
  RightSwipe swipe;
  const auto moved = [&swipe](double x, double y, std::chrono::milliseconds time) {
    return swipe.move({x, y}, time);
  };
  EXPECT_FALSE(moved(500, 0, 10ms)) << "nothing has begun";
  swipe.begin({100, 100}, 1000ms);
  EXPECT_FALSE(moved(149, 100, 1100ms));
  EXPECT_TRUE(moved(150, 125, 1500ms));
  EXPECT_FALSE(moved(300, 125, 1500ms)) << "once for each finger";
  swipe.begin({100, 100}, 1000ms);
  EXPECT_FALSE(moved(20, 100, 1100ms)) << "to the left";
  EXPECT_FALSE(moved(160, 131, 1100ms)) << "too steep";
  EXPECT_FALSE(moved(120, 100, 1501ms));
  EXPECT_FALSE(moved(400, 100, 1502ms)) << "too slow";
  swipe.begin({100, 100}, 2000ms);
  swipe.cancel();
  EXPECT_FALSE(moved(400, 100, 2001ms));
}

TEST_F(ExternalPointTest, TheRoutePresentsTheExchangeOrFails) {
  const auto router = std::make_shared<ExternalPointRouter>(config_);
  std::vector<std::string> results;
  const auto route = [&](const std::shared_ptr<ViewController>& from) {
    router->route(
        from, [&] { results.emplace_back("success"); },
        [&](const Error& error) { results.push_back(error.localizedDescription()); });
    platform_.loop->run();
    return std::exchange(results, {});
  };
  EXPECT_THAT(route(host_), ElementsAre("success"));
  ASSERT_TRUE(presentedBy(*host_));
  EXPECT_EQ(presentedBy(*host_)->landingUrl, enabled.landingUrl);
  host_->dismiss(false);
  EXPECT_THAT(route(nullptr), ElementsAre("ReferenceError.deallocated"));
  config_->config.plugin.externalPointPlugin = {};
  EXPECT_THAT(route(host_), ElementsAre("ExternalPointPluginError.isNotEnabled"));
  config_->error = Error("NetworkError", "offline", "끊겼어요");
  EXPECT_THAT(route(host_), ElementsAre("끊겼어요"));
  EXPECT_FALSE(host_->presentedViewController());
}

class ExternalPointEntryTest : public ExternalPointTest {
 protected:
  void run(const std::shared_ptr<FetchConfigUseCase>& config) {
    RunningKit::makeCurrent(std::make_shared<RunningKit>(
        RunningKit{.fetchConfigUseCase = config, .campaignNavigator = nullptr, .routers = {}}));
  }
  std::shared_ptr<ExternalPointEntryView> placedView() {
    const auto view = std::make_shared<ExternalPointEntryView>();
    view->didMoveToWindow();
    platform_.loop->run();
    return view;
  }
};

TEST_F(ExternalPointEntryTest, ItShowsThePluginsTextsInTheHostsColour) {
  run(config_);
  config_->config.brandTheme.primary = Color{1.0, 1.0, 0.8, 1.0};
  const auto view = placedView();
  const auto& state = view->state.value();
  EXPECT_FALSE(state.isHidden);
  EXPECT_EQ(state.guideMessage, enabled.entryViewMessage);
  EXPECT_EQ(state.exchangeLabel, enabled.exchangeText);
  EXPECT_EQ(state.exchangeColor, config_->config.brandTheme.primary);
  EXPECT_NE(state.exchangeTextColor, (Color{1.0, 1.0, 1.0, 1.0})) << "white would not be legible";
  config_->config.plugin.externalPointPlugin = {};
  view->didMoveToWindow();
  platform_.loop->run();
  EXPECT_FALSE(view->state.value().isHidden) << "it asks once";
}

TEST_F(ExternalPointEntryTest, ItStaysHiddenWithoutAnEnabledPlugin) {
  const LogCapture log;
  const auto view = placedView();
  EXPECT_TRUE(view->state.value().isHidden);
  EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("before ExternalPointEntryView")));
  run(config_);
  view->didMoveToWindow();
  platform_.loop->run();
  EXPECT_FALSE(view->state.value().isHidden) << "asks as soon as there is a kit";
  config_->config.plugin.externalPointPlugin = {};
  EXPECT_EQ(placedView()->state.value(), ExternalPointEntryView::State());
  config_->error = Error("NetworkError", "offline");
  const auto failed = placedView();
  EXPECT_EQ(failed->state.value(), ExternalPointEntryView::State());
  failed->navigate(host_);
  EXPECT_FALSE(host_->presentedViewController());
}

}  // namespace
}  // namespace orrelo::test
