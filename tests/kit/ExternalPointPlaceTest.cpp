#include "rewards/externalpoint/ExternalPointEntryView.h"
#include "rewards/externalpoint/ExternalPointExchangeViewController.h"
#include "support/LogCapture.h"
#include "support/Reports.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "ui/RunningKit.h"

#include <orrelo/Orrelo.h>
#include <orrelo/OrreloWebKit.h>

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

/// The exchange within a whole kit, where the service enables it or not.
class ExternalPointPlaceTest : public testing::Test {
 protected:
  void initialize(bool isEnabled) {
    auto config = configReply();
    const std::string flag = R"("is_enabled":true)";
    if (!isEnabled) config.replace(config.find(flag), flag.size(), R"("is_enabled":false)");
    platform_.session->responder = [config](const URLRequest& request) {
      return std::optional(
          ScriptedURLSession::reply(200, request.url.path().ends_with("/config") ? config : ""));
    };
    Orrelo::initialize(ORLConfig("shop"));
    platform_.loop->run();
  }
  bool isOpen() const {
    return std::dynamic_pointer_cast<ExternalPointExchangeViewController>(host_->presentedViewController()) !=
           nullptr;
  }

  TestPlatform platform_;
  const std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

TEST_F(ExternalPointPlaceTest, TheFacadeOpensItAndLogsTheResult) {
  const LogCapture log;
  initialize(true);
  Orrelo::showNaverPayExchange(host_);
  EXPECT_FALSE(isOpen()) << "the configuration comes first";
  platform_.loop->run();
  EXPECT_TRUE(isOpen());
  EXPECT_THAT(log.lines(), Contains(testing::AllOf(HasSubstr("[DEBUG]"),
                                                   EndsWith(" Route to NaverPay Exchanage success"))));
}

TEST_F(ExternalPointPlaceTest, WithADisabledPluginNothingOpens) {
  const LogCapture log;
  initialize(false);
  EXPECT_EQ(OrreloWebKit::handle(host_, "Orrelo", R"({"method":"showNaverPayExchange"})"), std::nullopt);
  platform_.loop->run();
  EXPECT_THAT(log.lines(), Contains(testing::AllOf(HasSubstr("[ERROR]"),
                                                   EndsWith(" Route to NaverPay Exchanage error: "
                                                            "ExternalPointPluginError.isNotEnabled"))));
  RunningKit::current()
      ->routers.at(Page::Fixed::externalPointExchange)
      ->route(
          host_, [] { FAIL(); }, [](const Error&) {});
  platform_.loop->run();
  EXPECT_FALSE(isOpen());
}

TEST_F(ExternalPointPlaceTest, ATapOnTheEntryViewIsReportedToTheKitAlone) {
  initialize(true);
  const auto delegate = std::make_shared<Reports>();
  Orrelo::setUserEventDelegate(delegate);
  const auto view = std::make_shared<ExternalPointEntryView>();
  view->navigate(host_);
  EXPECT_FALSE(isOpen()) << "nothing is shown yet";
  view->didMoveToWindow();
  platform_.loop->run();
  view->navigate(nullptr);
  EXPECT_FALSE(isOpen());
  view->navigate(host_);
  EXPECT_TRUE(isOpen());
  platform_.loop->runFor(std::chrono::seconds(100));
  EXPECT_THAT(delegate->names, IsEmpty());
  EXPECT_THAT(platform_.session->requestsTo("/event"), IsEmpty());
  const auto sent = platform_.session->requestsTo("/events");
  ASSERT_EQ(sent.size(), 1U);
  const std::string name = R"("event_name":"ol_external_point_entry_view_click")";
  const auto first = sent.front().body->find(name);
  ASSERT_NE(first, std::string::npos);
  EXPECT_NE(sent.front().body->find(name, first + 1), std::string::npos)
      << "also reported where there is no screen to present from";
}

}  // namespace
}  // namespace orrelo::test
