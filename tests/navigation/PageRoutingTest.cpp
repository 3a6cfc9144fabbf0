#include "base/Logger.h"
#include "navigation/PageRouterImpl.h"
#include "navigation/ShowPageUseCase.h"
#include "support/FixedConfig.h"
#include "support/TestPlatform.h"
#include "ui/CampaignNavigator.h"
#include "ui/CampaignViewControllerFactory.h"
#include "ui/KeyWindow.h"
#include "ui/NavigationController.h"
#include "ui/PageRouter.h"
#include "ui/Router.h"
#include "ui/RunningKit.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

class FeatureRouter final : public Router {
 public:
  void route(const std::shared_ptr<ViewController>&, std::function<void()> onSuccess,
             std::function<void(const Error&)> onFailure) override {
    error ? onFailure(*error) : onSuccess();
  }
  std::optional<Error> error;
};

// Its screens bear the campaign's id as their title.
class Campaigns final : public CampaignNavigator,
                        public CampaignViewControllerFactory,
                        public std::enable_shared_from_this<Campaigns> {
 public:
  std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const override {
    return std::const_pointer_cast<Campaigns>(shared_from_this());
  }
  void showHome(const std::shared_ptr<ViewController>& with, const std::optional<std::string>&) override {
    homes.push_back(with);
  }
  std::shared_ptr<ViewController> make(const std::string& id) const override {
    auto screen = std::make_shared<HostViewController>();
    screen->setTitle(id);
    return screen;
  }
  std::shared_ptr<ViewController> make(ORLCampaignType) const override { return nullptr; }

  /// The screens from which home was opened.
  std::vector<std::shared_ptr<ViewController>> homes;
};

class PageRoutingTest : public testing::Test {
 protected:
  PageRoutingTest() {
    // Keeps the level and the message of a line "[OrreloSDK][ERROR] <date> <message>".
    setLogSink([this](std::string_view line) {
      const std::string level(line.substr(11, line.find(' ') - 10));
      log_.push_back(level + std::string(line.substr(line.find("+0000 ") + 6)));
    });
    platform_.application->setUrlOpener(
        {[](const Url& url) { return url.scheme() == "shop"; },
         [this](const Url& url) { done_.push_back("open " + std::string(url.text())); }});
    setKeyWindowRootViewController(host_);
    RunningKit::makeCurrent(
        std::make_shared<RunningKit>(RunningKit{.fetchConfigUseCase = config_,
                                                .campaignNavigator = campaigns_,
                                                .routers = {{Page::Fixed::gifticon, feature_}}}));
  }
  ~PageRoutingTest() override {
    RunningKit::makeCurrent(nullptr);
    setLogSink(nullptr, false);
  }

  void route(const Page& page) { router_->route(host_, page); }
  Lines taken() { return std::exchange(done_, {}); }
  Lines logged() { return std::exchange(log_, {}); }
  void showPage(const std::string& id) {
    showPage_->execute(id);
    platform_.loop->run();
  }

  TestPlatform platform_;
  Lines done_;
  Lines log_;
  std::shared_ptr<FeatureRouter> feature_ = std::make_shared<FeatureRouter>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
  std::shared_ptr<Campaigns> campaigns_ = std::make_shared<Campaigns>();
  std::shared_ptr<FixedConfig> config_ = std::make_shared<FixedConfig>();
  std::shared_ptr<PageRouter> router_ = std::make_shared<PageRouterImpl>();
  std::shared_ptr<ShowPageUseCase> showPage_ = ShowPageUseCaseImpl::create(config_, router_);
};

TEST_F(PageRoutingTest, EachPageHasItsRoute) {
  route(Page::Campaign{"c-1"});
  ASSERT_TRUE(host_->presentedViewController());
  EXPECT_EQ(host_->presentedViewController()->title(), "c-1");
  route(Page::Fixed::home);
  EXPECT_THAT(campaigns_->homes, ElementsAre(host_));
  route(Page::DeepLink{*Url::parse("shop://cart")});
  route(Page::DeepLink{*Url::parse("unheard-of://cart")});
  EXPECT_THAT(taken(), ElementsAre("open shop://cart"));
  EXPECT_THAT(logged(), IsEmpty()) << "a link that cannot be opened is ignored without a log line";
  route(Page::Fixed::unknown);
  EXPECT_THAT(logged(), ElementsAre("[ERROR] Route to Unknown Page. Check Orrelo SDK version"));
}

TEST_F(PageRoutingTest, WithoutARunningKitEachRouteIsLogged) {
  RunningKit::makeCurrent(nullptr);
  route(Page::Campaign{"c-1"});
  route(Page::Fixed::home);
  route(Page::Fixed::pointRedemptionHistory);
  const std::string start = "[ERROR] Orrelo SDK is not initialized. Call Orrelo.initialize() before ";
  EXPECT_THAT(logged(), ElementsAre(start + "showCampaign(by:with:)", start + "showHome(with:)",
                                    start + "route(with:page:)", "[ERROR] Orrelo is not initialized"));
  EXPECT_FALSE(host_->presentedViewController());
}

TEST_F(PageRoutingTest, AFeaturesRouteIsLogged) {
  route(Page::Fixed::gifticon);
  feature_->error = Error("Test", "closed", "문을 닫았어요");
  route(Page::Fixed::gifticon);
  route(Page::Fixed::referral);
  EXPECT_THAT(logged(), ElementsAre("[DEBUG] page(gifticon) route is succeed", "[ERROR] 문을 닫았어요",
                                    "[ERROR] Orrelo is not initialized"));
  EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(PageRoutingTest, AnIdLeadsToItsFirstPageOverTheUppermostScreen) {
  config_->config.entries = {
      {"autumn", Page::Campaign{"c-1"}}, {"autumn", Page::Fixed::home}, {"odd", Page()}};
  const auto navigation = NavigationController::create(std::make_shared<HostViewController>());
  host_->present(navigation, false);
  showPage("autumn");
  EXPECT_EQ(navigation->topViewController()->title(), "c-1");
  showPage("odd");
  showPage("Autumn");
  EXPECT_THAT(logged(), ElementsAre("[ERROR] Route to Unknown Page. Check Orrelo SDK version",
                                    "[ERROR] Cannot find pageId: Autumn"));
  config_->error = Error("NetworkError", "offline");
  showPage("autumn");
  EXPECT_THAT(logged(), ElementsAre("[ERROR] NetworkError.offline"));
  config_->error.reset();
  host_.reset();
  showPage("autumn");
  EXPECT_THAT(logged(), ElementsAre("[ERROR] Cannot find UIViewController in App while showing Page"));
}

}  // namespace
}  // namespace orrelo::test
