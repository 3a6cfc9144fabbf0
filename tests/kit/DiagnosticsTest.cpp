#include "base/Json.h"
#include "inappmessage/InAppMessageSkipTimeCheckService.h"
#include "support/MemoryEventJournal.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "ui/ViewController.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

using Source = ORLDiagnostics::ConfigurationSource;

// The kit is a global of the process, so every test runs in its own process (see gtest_discover_tests).
class DiagnosticsTest : public testing::Test {
 protected:
  DiagnosticsTest() {
    platform_.session->responder = [this](const URLRequest& request) {
      if (request.url.path().ends_with("/config")) return configReply_;
      return std::optional(reply_);
    };
  }

  void initialize() {
    Orrelo::initialize(ORLConfig("shop"));
    platform_.loop->run();
  }
  void report(int count) {
    for (int n = 0; n < count; ++n) Orrelo::sendEvent("bought", {{"item", "blue shoes"}});
  }

  TestPlatform platform_;
  std::optional<URLSessionResult> configReply_ = ScriptedURLSession::reply(200, configReply());
  URLSessionResult reply_ = ScriptedURLSession::reply(200);
};

TEST_F(DiagnosticsTest, ASnapshotFollowsEventsFromTheCallToTheService) {
  const auto before = Orrelo::diagnostics();
  EXPECT_FALSE(before.isInitialized);
  EXPECT_EQ(before.environment.kitVersion, "1.0.0");
  EXPECT_EQ(before.environment.applicationKey, "");

  Orrelo::initialize(ORLConfig("shop"));
  report(3);
  auto now = Orrelo::diagnostics();
  EXPECT_EQ(now.configuration.source, Source::none);
  EXPECT_EQ(now.events.accepted, 3u);
  EXPECT_EQ(now.events.onTheirWay, 3u);

  platform_.loop->run();
  now = Orrelo::asInterface().diagnostics({});
  EXPECT_TRUE(now.isInitialized);
  EXPECT_EQ(now.environment.hostIdentifier, "com.example.shop");
  EXPECT_EQ(now.environment.name, "production");
  EXPECT_EQ(now.environment.serviceUrl, "https://api.orrelo.example");
  EXPECT_EQ(now.configuration.source, Source::service);
  EXPECT_EQ(now.configuration.time, now.time);
  EXPECT_TRUE(now.configuration.isEnabled);
  platform_.loop->runFor(std::chrono::seconds(30));
  now = Orrelo::diagnostics();
  EXPECT_EQ(now.events.onTheirWay, 0u);
  EXPECT_EQ(now.hostEvents.sent, 3u);
  EXPECT_EQ(now.hostEvents.waiting, 0u);
  EXPECT_EQ(now.hostEvents.failed, 0u);
  EXPECT_THAT(now.hostEvents.store, HasSubstr("OLSCoreDataEvent"));
  EXPECT_THAT(now.kitEvents.store, HasSubstr("BIEventCoreData"));
  ASSERT_FALSE(now.requests.empty());
  EXPECT_EQ(now.requests.back().method, "POST");
  EXPECT_THAT(now.requests.back().url, testing::EndsWith("/sdk/shop/event"));
  EXPECT_EQ(now.requests.back().status, 200);
}

TEST_F(DiagnosticsTest, FaultsAreCountedWithTheirReasons) {
  configReply_ = ScriptedURLSession::failure(URLError::cannotConnectToHost);
  initialize();
  report(1);
  platform_.loop->run();
  auto now = Orrelo::diagnostics();
  EXPECT_EQ(now.configuration.source, Source::defaults);
  EXPECT_EQ(now.configuration.time, std::nullopt);
  EXPECT_EQ(now.configuration.failureTime, now.time);
  EXPECT_THAT(now.configuration.failure.value(), HasSubstr("cannotConnectToHost"));
  EXPECT_THAT(now.events.dropped, ElementsAre(Pair("unconfigured", 1u)));
  EXPECT_THAT(now.requests.back().failure.value(), HasSubstr("cannotConnectToHost"));
  EXPECT_EQ(now.requests.back().status, std::nullopt);

  configReply_ = ScriptedURLSession::reply(200, configReply());
  reply_ = ScriptedURLSession::reply(404);
  report(1);
  platform_.loop->runFor(std::chrono::seconds(30));
  now = Orrelo::diagnostics();
  EXPECT_EQ(now.hostEvents.failed, 2u);
  EXPECT_EQ(now.hostEvents.sent, 0u);
  EXPECT_EQ(now.hostEvents.waiting, 1u);
  EXPECT_THAT(now.hostEvents.ended.value(), HasSubstr("invalidHttpStatusCode"));
  EXPECT_EQ(now.hostEvents.ended, now.hostEvents.lastFailure);

  for (int n = 0; n < 130; ++n) {
    Orrelo::showPage("event");
    platform_.clock->advance(std::chrono::seconds(61));
    platform_.loop->run();
  }
  EXPECT_EQ(Orrelo::diagnostics().requests.size(), ORLDiagnostics::maximumRequests);
}

TEST_F(DiagnosticsTest, EventsOfEndedProcessesAreCountedApart) {
  auto platform = Platform::current();
  const auto journal = std::make_shared<MemoryEventJournal>();
  platform.eventJournal = journal;
  Platform::install(platform);
  initialize();
  report(3);
  journal->abandon();
  initialize();
  platform_.loop->run();
  const auto now = Orrelo::diagnostics();
  EXPECT_EQ(now.events.accepted, 3u);
  EXPECT_EQ(now.events.adopted, 3u);
  EXPECT_EQ(now.journal.unwrittenBytes, 0u);
}

TEST_F(DiagnosticsTest, AForkedChildGetsLittleAndWaitsForNothing) {
  initialize();
  EXPECT_EXIT(
      {
        const auto snapshot = Orrelo::diagnostics();
        std::_Exit(!snapshot.isInitialized && snapshot.environment.kitVersion == "1.0.0" ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST_F(DiagnosticsTest, APageSaysWhatWasLeftOut) {
  initialize();
  Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
  const auto host = std::make_shared<HostViewController>();
  host->appear(false);
  const auto open = [&](const std::string& page) {
    reply_ = ScriptedURLSession::reply(200, campaignReply(page));
    Orrelo::showCampaign("c-1", host);
    platform_.loop->run();
    host->dismiss(false);
    return Orrelo::diagnostics().pages;
  };
  EXPECT_THAT(open(attendancePage()).back().omissions, IsEmpty());
  const auto pages = open(R"({"page_type":"futuristic","page_id":"p-9"})");
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_EQ(pages.back().path, "/campaigns/c-1");
  ASSERT_THAT(pages.back().omissions, SizeIs(1));
  EXPECT_EQ(pages.back().omissions[0].pointer, "/page");
  EXPECT_THAT(pages.back().omissions[0].reason, HasSubstr("unknown campaigns"));

  const auto unreadable = open("[]");
  EXPECT_EQ(unreadable.back().omissions.at(0).pointer, "");
  EXPECT_THAT(unreadable.back().omissions[0].reason, AllOf(HasSubstr("cannot be read"), HasSubstr("/page")));

  // Each name is left out at a place that takes time to find.
  constexpr int count = 50'000;
  std::string fillers;
  std::string names = "\"blank\"";
  for (int n = 0; n < count; ++n) {
    fillers += "\"f" + std::to_string(n) + "\":0,";
    names += ",\"rocket\"";
  }
  const auto many = open("{" + fillers + R"("page_type":"m","page_id":"p","page_details_v2":{"blank":[8],
      "page_config":{"layout":{"toolbar":{"text":""},"component_order":[)" +
                         names + "]}}}}");
  EXPECT_THAT(many.back().omissions, SizeIs(ORLDiagnostics::Page::maximumOmissions));
  EXPECT_EQ(many.back().omissionCount, static_cast<std::size_t>(count));
}

TEST_F(DiagnosticsTest, TheJsonHasEverythingButTheUser) {
  initialize();
  Orrelo::setUser(ORLUser("minji-2026", ORLMarketingStatus::unknown, {}));
  report(1);
  InAppMessageSkipTimeCheckServiceImpl(platform_.defaults->standard()).recordSkipToday();
  platform_.loop->runFor(std::chrono::seconds(30));
  const auto snapshot = Orrelo::diagnostics();
  EXPECT_THAT(snapshot.skippedToday, ElementsAre("in-app messages"));
  const auto text = snapshot.json();
  EXPECT_THAT(text, Not(testing::AnyOf(HasSubstr("minji"), HasSubstr("blue shoes"))));
  JsonParser parser;
  const auto json = parser.parse(text).objectValue();
  EXPECT_EQ(json.text("time"), "2023-11-14T22:13:50.000000Z");
  EXPECT_EQ(json.text("user"), snapshot.user);
  EXPECT_EQ(json.object("environment").text("applicationKey"), "shop");
  EXPECT_TRUE(json.object("environment").find("certificateFile")->isNull());
  EXPECT_EQ(json.object("configuration").text("source"), "service");
  EXPECT_EQ(json.object("hostEvents").integer("sent"), 2) << "with the profile";
  EXPECT_EQ(json.object("journal").integer("records"), 0);
  EXPECT_GT(json.object("process").integer("residentBytes"), 0);
  EXPECT_EQ(json.array("requests").size(), snapshot.requests.size());

  EXPECT_EQ(snapshot.user->size(), 16u);
  EXPECT_EQ(Orrelo::diagnostics().user, snapshot.user);
  EXPECT_EQ(Orrelo::diagnostics(ORLDiagnostics::UserIdentity::plain).user, "minji-2026");
  Orrelo::setUser(std::nullopt);
  EXPECT_EQ(Orrelo::diagnostics().user, std::nullopt);
}

}  // namespace
}  // namespace orrelo::test
