#include "support/ElsewhereLoop.h"
#include "support/ExplanationCapture.h"
#include "support/LogCapture.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "ui/ViewController.h"

#include <orrelo/Orrelo.h>
#include <orrelo/OrreloWebKit.h>

#include <gmock/gmock.h>
#include <thread>

namespace orrelo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// The kit is a global of the process, so every test runs in its own process (see gtest_discover_tests).
class ExplanationTest : public testing::Test {
 protected:
  ExplanationTest() {
    platform_.session->responder = [this](const URLRequest& request) {
      if (request.url.path().ends_with("/config")) return configReply_;
      return std::optional(reply_);
    };
  }

  void initialize(const std::string& appKey = "shop") {
    Orrelo::initialize(ORLConfig(appKey));
    platform_.loop->run();
  }
  void signIn() { Orrelo::setUser(ORLUser("minji-2026", ORLMarketingStatus::unknown, {})); }
  std::vector<std::string> all() const { return explanations_.lines(); }
  /// The lines that the task causes.
  std::vector<std::string> linesOf(const std::function<void()>& task) {
    const auto before = static_cast<std::ptrdiff_t>(all().size());
    task();
    platform_.loop->runFor(std::chrono::seconds(1));
    const auto now = all();
    return {now.begin() + before, now.end()};
  }

  TestPlatform platform_;
  const ExplanationCapture explanations_{ExplanationLevel::debug};
  std::optional<URLSessionResult> configReply_ = ScriptedURLSession::reply(200, configReply());
  URLSessionResult reply_ = ScriptedURLSession::reply(200);
};

TEST_F(ExplanationTest, AStartSaysWhatItUses) {
  const auto suite = platform_.defaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_CA", std::string("/nowhere/certificate.pem"));
  EXPECT_THAT(linesOf([this] { initialize(""); }),
              AllOf(Contains(AllOf(HasSubstr("OrreloSDK 1.0.0"), HasSubstr("com.example.shop 2.1"))),
                    Contains(AllOf(HasSubstr("https://localhost:9443"), HasSubstr("development"))),
                    Contains(HasSubstr(platform_.folder.path().string())),
                    Contains(HasSubstr("error: The application key is empty")),
                    Contains(AllOf(HasSubstr("error: The certificate file /nowhere/certificate.pem"),
                                   HasSubstr("No such file")))));
  EXPECT_THAT(linesOf([this] { initialize(); }), Contains(HasSubstr("initialize is called again")));
}

TEST_F(ExplanationTest, AnEventThatIsDroppedSaysWhyAndNotWhatItHolds) {
  const auto drops = [this] {
    return linesOf([] { Orrelo::sendEvent("bought", {{"secret", "blue shoes"}}); });
  };
  signIn();
  EXPECT_THAT(drops(), Contains(HasSubstr("error: sendEvent(_:values:) does nothing")));
  configReply_ = ScriptedURLSession::failure(URLError::cannotConnectToHost);
  initialize();
  const auto unconfigured = drops();
  EXPECT_THAT(unconfigured, Contains(AllOf(HasSubstr("warning: The event \"bought\" is dropped"),
                                           HasSubstr("no configuration could be fetched"))));
  EXPECT_THAT(unconfigured, Contains(AllOf(HasSubstr("GET https://api.orrelo.example/"), HasSubstr("/config"),
                                           HasSubstr("URLError.cannotConnectToHost"))));
  configReply_ = ScriptedURLSession::reply(200, configReply(false));
  for (int n = 0; n < 2; ++n) {
    EXPECT_THAT(drops(), Contains(HasSubstr("has switched the kit off"))) << "with and without a question";
  }
  EXPECT_THAT(all(), Each(AllOf(Not(HasSubstr("blue shoes")), Not(HasSubstr("minji")))));
}

TEST_F(ExplanationTest, APipelineThatEndsSaysUntilWhen) {
  initialize();
  reply_ = ScriptedURLSession::reply(404, "no such key\n[Orrelo] error: forged");
  const LogCapture log;
  Orrelo::sendEvent("bought");
  platform_.loop->runFor(std::chrono::seconds(30));
  EXPECT_THAT(all(), Contains(AllOf(HasSubstr("/sdk/shop/event has failed: status 404"),
                                    HasSubstr("Check the application key"))));
  EXPECT_THAT(all(), Contains(HasSubstr("the reply begins no such key [Orrelo]")));
  EXPECT_THAT(all(), Contains(AllOf(HasSubstr("error: Sending the events of"), HasSubstr("OLSCoreDataEvent"),
                                    HasSubstr("next Orrelo::initialize"))));
  EXPECT_THAT(log.lines(), Each(AllOf(HasSubstr("[OrreloSDK]"), Not(HasSubstr("404")))))
      << "the stated log has its stated lines alone";
}

TEST_F(ExplanationTest, WhatIsHeldWrongIsSaidAndCrashesNothing) {
  initialize();
  const auto missing = [&](const std::function<void()>& call) {
    EXPECT_THAT(linesOf(call), Contains(HasSubstr("the host's screen is null")));
  };
  auto& interface = Orrelo::asInterface();
  for (int n = 0; n < 2; ++n) {  // with nobody signed in, and then with a user
    missing([] { Orrelo::showHome(nullptr); });
    missing([&] { interface.showCampaign("c-1", nullptr); });
    missing([&] { interface.showCampaign(ORLCampaignType::attendance, nullptr); });
    missing([] { Orrelo::showNaverPayExchange(nullptr); });
    missing([&] { interface.showInAppMessage(nullptr); });
    missing([] { OrreloWebKit::handle(nullptr, "Orrelo", R"({"method":"showHome"})"); });
    signIn();
  }
  for (const auto timeout : {std::chrono::milliseconds::min(), std::chrono::milliseconds::max()}) {
    Orrelo::flush(timeout, nullptr);
    platform_.loop->runFor(std::chrono::seconds(1));
    EXPECT_TRUE(Orrelo::flush(timeout)) << "nothing is on its way";
  }
  Orrelo::application({{"Orrelo", 1}}, nullptr);
  Orrelo::userNotificationCenter({{{"Orrelo", 1}}}, nullptr);
  Orrelo::setUserEventDelegate(nullptr);
  Orrelo::setOptInMarketingCampaignDelegate(nullptr);
  Orrelo::setDeviceToken({});
  EXPECT_THAT(linesOf([] { Orrelo::showPage("main"); }), Contains(HasSubstr("no window with an OrreloHost")));
  EXPECT_THAT(linesOf([] { Orrelo::showPage("none"); }), Contains(HasSubstr("no entry \"none\"")));
  EXPECT_THAT(linesOf([] { Orrelo::application({}, nullptr); }), Contains(HasSubstr("the host's own")));
}

TEST_F(ExplanationTest, ScreensAndMessagesThatDoNotComeSayWhy) {
  initialize();
  const auto host = std::make_shared<HostViewController>();
  host->appear(false);
  EXPECT_THAT(linesOf([&] { Orrelo::showCampaign("c-1", host); }),
              Contains(HasSubstr("notLoggedIn. Call Orrelo::setUser first")));
  host->dismiss(false);
  const auto show = [&] { return linesOf([&] { Orrelo::showInAppMessage(host); }); };
  EXPECT_THAT(show(), Contains(HasSubstr("nobody is signed in")));
  signIn();
  EXPECT_THAT(show(), Contains(HasSubstr("could not be fetched")));
  reply_ = ScriptedURLSession::reply(200, R"({"type":"banner","items":[]})");
  EXPECT_THAT(show(), Contains(HasSubstr("no messages for this user")));
}

TEST_F(ExplanationTest, APlatformIsInstalledOnceAndWhole) {
  EXPECT_THAT(linesOf([] { Platform::install(Platform::current()); }),
              testing::ElementsAre(HasSubstr("Platform::install is called again")));
  auto hollow = Platform::current();
  hollow.random = nullptr;
  hollow.device = nullptr;
  EXPECT_THAT(linesOf([&] { Platform::install(hollow); }),
              AllOf(Contains(HasSubstr("is given no random")), Contains(HasSubstr("is given no device"))));
  EXPECT_NE(Platform::current().random, nullptr);
  initialize();
  Platform::install(Platform::current());
  Orrelo::sendEvent("late");
  platform_.loop->run();
}

TEST_F(ExplanationTest, AScreenThatIsAskedForOnAnotherThreadIsSaid) {
  auto platform = Platform::current();
  platform.mainLoop = std::make_shared<ElsewhereLoop>(platform_.loop);
  Platform::install(platform);
  initialize();
  const auto wrong = Contains(HasSubstr("does not run the main loop"));
  EXPECT_THAT(linesOf([] { EXPECT_NE(Orrelo::getHomeViewController(), nullptr); }), wrong);
  EXPECT_THAT(linesOf([] { EXPECT_NE(Orrelo::getCampaignViewController("c-1"), nullptr); }), wrong);
  EXPECT_THAT(
      linesOf([] { EXPECT_NE(Orrelo::getCampaignViewController(ORLCampaignType::attendance), nullptr); }),
      wrong);
}

TEST_F(ExplanationTest, AKeyThatNamesTheBundleStopsWithTheReason) {
  EXPECT_DEATH(Orrelo::initialize(ORLConfig("NSGlobalDomain")),
               "names no suite.*identifier of the application");
}

}  // namespace
}  // namespace orrelo::test
