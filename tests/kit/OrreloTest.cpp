#include "base/Json.h"
#include "events/KelsoInsight.h"
#include "events/UserEventTracker.h"
#include "kit/InitializedOrrelo.h"
#include "platform/store/SqliteUserDefaults.h"
#include "support/LogCapture.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "ui/KeyWindow.h"
#include "ui/ViewController.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>
#include <thread>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

// The kit is a global of the process, so every test runs in its own process (see gtest_discover_tests).
class OrreloTest : public testing::Test {
 protected:
  OrreloTest() {
    platform_.session->responder = [this](const URLRequest& request) {
      if (request.url.path().ends_with("/config")) return configReply_;
      return std::optional(ScriptedURLSession::reply(200));
    };
  }

  void initialize(const std::string& appKey = "shop") {
    Orrelo::initialize(ORLConfig(appKey));
    platform_.loop->run();
  }

  /// Lets the pipelines send what is stored; the bodies in order of arrival.
  std::vector<std::string> delivered() {
    platform_.loop->runFor(std::chrono::seconds(100));
    std::vector<std::string> bodies;
    for (const auto& request : platform_.session->requestsTo("/event")) bodies.push_back(*request.body);
    return bodies;
  }

  static std::optional<std::string> field(const std::string& body, const std::string& key) {
    JsonParser parser;
    return parser.parse(body).objectValue().optionalText(key);
  }

  TestPlatform platform_;
  std::optional<URLSessionResult> configReply_ = ScriptedURLSession::reply(200, configReply());
};

TEST_F(OrreloTest, EveryGuardedOperationIsRefusedBeforeInitialize) {
  const LogCapture log;
  bool completed = false;
  Orrelo::sendEvent("e");
  Orrelo::sendEvent("e", {{"k", nullptr}});  // the guard comes before the check of the values
  Orrelo::showHome(nullptr);
  Orrelo::showCampaign("id", nullptr);
  Orrelo::showCampaign(ORLCampaignType::attendance, nullptr);
  EXPECT_EQ(Orrelo::getCampaignViewController("id")->kind(), "ErrorViewController");
  EXPECT_EQ(Orrelo::getCampaignViewController(ORLCampaignType::attendance)->kind(), "ErrorViewController");
  Orrelo::showNaverPayExchange(nullptr);
  Orrelo::showPage("id");
  Orrelo::showInAppMessage(nullptr);
  Orrelo::setDeviceToken({});
  Orrelo::setPushToken("t");
  Orrelo::userNotificationCenter({}, [&] { completed = true; });
  Orrelo::application({}, [&](BackgroundFetchResult) { completed = true; });
  std::vector<std::string> complaints;
  for (const auto& line : log.lines()) {
    if (const auto at = line.find("Orrelo SDK"); at != std::string::npos) {
      EXPECT_THAT(line, testing::StartsWith("[OrreloSDK][ERROR] "));
      complaints.push_back(line.substr(at));
    }
  }
  const std::string start = "Orrelo SDK is not initialized. Call Orrelo.initialize() before ";
  EXPECT_THAT(
      complaints,
      ElementsAre(start + "sendEvent(_:values:)", start + "sendEvent(_:values:)", start + "showHome(with:)",
                  start + "showCampaign(by:with:)", start + "showCampaign(by:with:)",
                  start + "getCampaignViewController(by:)", start + "getCampaignViewController(by:)",
                  start + "showNaverPayExchange(with:)", start + "showPage(by:)",
                  start + "showInAppMessage(with:)", start + "setDeviceToken(_:)", start + "setPushToken(_:)",
                  start + "userNotificationCenter(_:didReceive:withCompletionHandler:)",
                  start + "application(_:didReceiveRemoteNotification:fetchCompletionHandler:)"));
  EXPECT_FALSE(completed);
}

TEST_F(OrreloTest, AUserBeforeInitializeIsRememberedAndTheirProfileDropped) {
  const LogCapture log;
  Orrelo::setUser(ORLUser("early"));
  EXPECT_THAT(log.lines(), testing::Contains(EndsWith("before sendEvent(_:values:)")).Times(1));
  EXPECT_EQ(platform_.defaults->standard()->text("orrelo_user_id"), "early");
  initialize();
  Orrelo::sendEvent("opened");
  const auto bodies = delivered();
  ASSERT_EQ(bodies.size(), 1u);
  EXPECT_EQ(field(bodies[0], "user_id"), "early");
}

TEST_F(OrreloTest, AnEventTravelsFromTheCallToTheService) {
  initialize();
  ASSERT_EQ(platform_.session->requests.size(), 1u);
  const auto& config = platform_.session->requests.front();
  EXPECT_EQ(config.method, "GET");
  EXPECT_EQ(config.url.text(), "https://api.orrelo.example/orreloservice/sdk/shop/config");
  EXPECT_FALSE(config.headers.contains("Content-Type"));

  Orrelo::sendEvent("bought", {{"item", "신발"}, {"sizes", EventArray{41, 42}}});
  const auto bodies = delivered();
  ASSERT_EQ(bodies.size(), 1u);
  EXPECT_EQ(field(bodies[0], "event_name"), "bought");
  EXPECT_EQ(field(bodies[0], "item"), "신발");
  EXPECT_EQ(field(bodies[0], "sizes"), "[41,42]");
  EXPECT_EQ(field(bodies[0], "user_id"), std::nullopt);
}

TEST_F(OrreloTest, TheProfileGoesOutUnderThePreviousUser) {
  initialize();
  Orrelo::setUser(ORLUser("first", ORLMarketingStatus::optIn, {{"user_id", "mine"}, {"level", 3}}));
  Orrelo::setUser(ORLUser("second", ORLMarketingStatus::optOut));
  Orrelo::setUser(ORLUser("second"));
  Orrelo::setUser(std::nullopt);
  Orrelo::sendEvent("after");
  EXPECT_EQ(platform_.defaults->standard()->text("orrelo_user_id"), "second");

  const auto bodies = delivered();
  ASSERT_EQ(bodies.size(), 4u);
  // The first profile keeps its own value "user_id"; later ones carry the previous user there.
  EXPECT_EQ(field(bodies[0], "user_id"), "first");
  EXPECT_EQ(field(bodies[0], "level"), "3");
  EXPECT_EQ(field(bodies[0], "opt_in_marketing"), "true");
  EXPECT_EQ(field(bodies[1], "user_id"), "first");
  EXPECT_EQ(field(bodies[1], "opt_in_marketing"), "false");
  EXPECT_EQ(field(bodies[2], "user_id"), "second");
  EXPECT_EQ(field(bodies[2], "opt_in_marketing"), std::nullopt);
  EXPECT_EQ(field(bodies[3], "user_id"), std::nullopt);
}

TEST_F(OrreloTest, TheServicesSwitchAndAMissingConfigurationDropEventsWithoutAWord) {
  configReply_ = ScriptedURLSession::reply(200, configReply(false));
  initialize();
  Orrelo::sendEvent("switched off");
  EXPECT_THAT(delivered(), testing::IsEmpty());

  configReply_ = ScriptedURLSession::failure(URLError::cannotConnectToHost);
  initialize("unanswered");
  Orrelo::sendEvent("no configuration");
  platform_.loop->run();
  configReply_ = ScriptedURLSession::reply(200, configReply());
  EXPECT_THAT(delivered(), testing::IsEmpty());

  Orrelo::sendEvent("answered");
  EXPECT_EQ(delivered().size(), 1u);
}

TEST_F(OrreloTest, ASecondInitializeTurnsToTheNewApplicationAndKeepsWhatIsStored) {
  initialize("first");
  platform_.session->responder = [this](const URLRequest& request) {
    return request.url.path().ends_with("/config") ? configReply_ : std::nullopt;  // events wait
  };
  Orrelo::sendEvent("stored");
  platform_.loop->run();
  platform_.session->responder = [this](const URLRequest& request) {
    return request.url.path().ends_with("/config") ? configReply_ : ScriptedURLSession::reply(200);
  };
  initialize("second");
  EXPECT_EQ(platform_.session->cancelled, 1);
  const auto bodies = delivered();
  ASSERT_EQ(bodies.size(), 2u);
  EXPECT_EQ(bodies[0], bodies[1]);
  EXPECT_THAT(platform_.session->requestsTo("/event").back().url.text(),
              testing::HasSubstr("/sdk/second/event"));
}

TEST_F(OrreloTest, AFormerInstanceThatSomebodyHoldsSendsNoMore) {
  initialize("first");
  const auto kit = InitializedOrrelo::current();
  const auto insight = KelsoInsight::instance();
  initialize("second");
  Orrelo::sendEvent("reported");
  UserEventTracker::track(UserEventName::visit);
  platform_.loop->runFor(std::chrono::seconds(100));
  for (const auto* const path : {"/event", "/events"}) {
    const auto requests = platform_.session->requestsTo(path);
    EXPECT_EQ(requests.size(), 1U);
    for (const auto& request : requests) {
      EXPECT_THAT(request.url.path(), testing::EndsWith("/sdk/second" + std::string(path)));
    }
  }
}

TEST_F(OrreloTest, InitializeReadsSettingsThatAnotherProcessWrote) {
  const auto process = [platform = Platform::current()] {
    return std::make_shared<SqliteUserDefaultsFactory>(platform.directories, platform.clock,
                                                       "com.example.shop");
  };
  auto withFiles = Platform::current();
  withFiles.userDefaults = process();
  Platform::install(std::move(withFiles));
  initialize();
  process()->suite("tamrenzo_api_storage_I'm_Ilvane")->set("ORRELO_SERVICE_URL", std::int64_t{1});
  initialize();
  const auto& requests = platform_.session->requests;
  EXPECT_EQ(requests.front().url.host(), "api.orrelo.example");
  EXPECT_EQ(requests.back().url.host(), "api-staging.orrelo.example");
  EXPECT_EQ(requests.back().headers.at("Kelso-UUID"), requests.front().headers.at("Kelso-UUID"));
}

TEST_F(OrreloTest, TheEnvironmentSuiteChoosesTheServiceAndItsCertificates) {
  const auto suite = platform_.defaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_DEVELOPMENT_CA", std::string("/ca.pem"));
  suite->set("ORRELO_SERVICE_URL", std::int64_t{7});
  initialize();
  EXPECT_EQ(platform_.session->requests.back().url.host(), "api.orrelo.example");
  EXPECT_TRUE(platform_.session->trusted.empty());
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", std::string("https://127.0.0.1:4444"));
  initialize();
  EXPECT_EQ(platform_.session->requests.back().url.host(), "127.0.0.1");
  EXPECT_EQ(platform_.session->trusted.at("https://127.0.0.1:4444"), "/ca.pem");
}

TEST_F(OrreloTest, UnsupportedValuesLeaveAsTheOneException) {
  initialize();
  EXPECT_THROW(Orrelo::sendEvent("e", {{"k", nullptr}}), UnsupportedEventValueException);
  EXPECT_THROW(Orrelo::asInterface().sendEvent("e", {{"k", EventBytes(1)}}), UnsupportedEventValueException);
  EXPECT_NO_THROW(Orrelo::sendEvent("e\xFF", {{"k", EventArray{EventBytes(1)}}}));
  const auto bodies = delivered();
  ASSERT_EQ(bodies.size(), 1u);
  EXPECT_EQ(field(bodies[0], "event_name"), "e\uFFFD");
}

TEST_F(OrreloTest, TokensBelongToTheInitializationAfterWhichTheyWereSet) {
  Orrelo::setPushToken("before");
  initialize("first");
  Orrelo::setUser(ORLUser("minji"));
  Orrelo::setDeviceToken({std::byte{0x00}, std::byte{0x0F}, std::byte{0xA5}});
  Orrelo::setPushToken("\xFF");
  platform_.loop->run();
  const auto former = InitializedOrrelo::current();
  initialize("second");
  Orrelo::setUser(ORLUser("minji"));
  platform_.loop->run();
  Orrelo::asInterface().setPushToken("again");
  platform_.loop->run();
  std::vector<std::string> uploads;
  for (const auto& request : platform_.session->requestsTo("/token")) {
    const auto path = request.url.path();
    uploads.push_back(std::string(path.substr(path.find("/sdk/"))) + " " + *field(*request.body, "token"));
  }
  EXPECT_THAT(uploads,
              ElementsAre("/sdk/first/token 000fa5", "/sdk/first/token \uFFFD", "/sdk/second/token again"));
}

TEST_F(OrreloTest, ANotificationBringsTheLastUserBackAndOpensItsCampaign) {
  platform_.defaults->standard()->set("orrelo_user_id", std::string("minji"));
  initialize();
  const auto host = std::make_shared<HostViewController>();
  setKeyWindowRootViewController(host);
  host->appear(false);
  std::string kind;
  Orrelo::userNotificationCenter({{{"Orrelo", 1}, {"campaignId", "c-1"}}},
                                 [&] { kind = host->presentedViewController()->kind(); });
  EXPECT_EQ(kind, "CampaignViewController") << "the completion follows the route";
  platform_.loop->run();
  EXPECT_EQ(platform_.session->requestsTo("/campaigns/c-1").at(0).headers.at("buid"), "minji");
  std::optional<BackgroundFetchResult> result;
  Orrelo::application({{"campaignId", "c-1"}}, [&](auto given) { result = given; });
  EXPECT_FALSE(result.has_value());
  Orrelo::application({{"Orrelo", nullptr}}, [&](auto given) { result = given; });
  EXPECT_EQ(result, BackgroundFetchResult::noData);
}

TEST_F(OrreloTest, EightThreadsAtOnce) {
  initialize();
  std::vector<std::jthread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([i] {
      for (int n = 0; n < 50; ++n) {
        Orrelo::sendEvent("e", {{"n", n}});
        Orrelo::setUser(ORLUser("u" + std::to_string(i), ORLMarketingStatus::optIn));
        Orrelo::setUserEventDelegate(nullptr);
        Orrelo::setPushToken("t");
        Orrelo::setDeviceToken({std::byte(n)});
        Orrelo::application({{"Orrelo", n}}, nullptr);
        if (n == 25 && i < 2) Orrelo::initialize(ORLConfig("again"));
      }
    });
  }
  threads.clear();
  platform_.loop->run();
  EXPECT_FALSE(platform_.session->requestsTo("/event").empty());
  EXPECT_FALSE(platform_.session->requestsTo("/token").empty());
}

TEST(OrreloObjects, BuildersStopWithoutTheirRequiredFieldAndTakeAnyText) {
  EXPECT_DEATH(ORLConfig::config([](ORLConfigBuilder&) {}), "appKey");
  EXPECT_DEATH(ORLUser::user([](ORLUserBuilder&) {}), "userId");
  EXPECT_EQ(ORLConfig([](ORLConfigBuilder& builder) { builder.appKey = ""; }).appKey(), "");
  const auto user = ORLUser([](ORLUserBuilder& builder) { builder.userId = ""; });
  EXPECT_EQ(user.userId(), "");
  EXPECT_EQ(marketingStatus(3), std::nullopt);
  EXPECT_EQ(campaignType(5), std::nullopt);
}

}  // namespace
}  // namespace orrelo::test
