#include "Insight.h"
#include "base/Json.h"
#include "support/LogCapture.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;

class BIEventPipelineTest : public testing::Test {
 protected:
  BIEventPipelineTest() { setUpInsight(); }

  void track(int count) {
    for (int i = 0; i < count; ++i) KelsoInsight::track("ol_visit", {{"page_name", "home"}});
    platform_.loop->run();
  }

  std::vector<std::size_t> batches() const {
    std::vector<std::size_t> sizes;
    for (const auto& request : platform_.session->requestsTo("/events")) {
      JsonParser parser;
      sizes.push_back(parser.parse(*request.body).arrayValue().size());
    }
    return sizes;
  }

  TestPlatform platform_;
  const LogCapture log_;
};

TEST_F(BIEventPipelineTest, TwentyNineWaitForTheTickOfThirtySeconds) {
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
  track(29);
  platform_.loop->runFor(milliseconds(29'999));
  EXPECT_THAT(batches(), testing::IsEmpty());
  platform_.loop->runFor(milliseconds(1));
  EXPECT_THAT(batches(), testing::ElementsAre(29u));
  EXPECT_THAT(log_.lines(), Contains(EndsWith("BI Logging Succeed")));
  platform_.loop->runFor(seconds(300));
  EXPECT_THAT(batches(), testing::ElementsAre(29u));
}

TEST_F(BIEventPipelineTest, TheThirtiethSendsAllThirty) {
  platform_.session->lay(ScriptedURLSession::reply(200));
  track(30);
  EXPECT_THAT(batches(), testing::ElementsAre(30u));
  const auto& request = platform_.session->requests.front();
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.url.text(), "https://service.test/orreloservice/sdk/app/events");
  EXPECT_EQ(request.headers.at("Content-Type"), "application/json");
  EXPECT_EQ(request.headers.at("app_name"), "com.example.shop");
  JsonParser parser;
  parser.parse(*request.body).arrayValue().forEach([](const JsonValue& event) {
    EXPECT_EQ(event.objectValue().text("event_name"), "ol_visit");
    EXPECT_EQ(event.objectValue().text("page_name"), "home");
    EXPECT_EQ(event.objectValue().text("event_time"), "2023-11-14T22:13:20");
    EXPECT_FALSE(event.objectValue().find("user_id"));
  });
}

TEST_F(BIEventPipelineTest, AThousandStoredRowsTakeTwoTicks) {
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(500); };
  track(1000);
  platform_.loop->runFor(seconds(30));  // two ticks have failed and ended the pipeline
  EXPECT_THAT(log_.lines(), Contains(HasSubstr("[ERROR]")));
  EXPECT_THAT(log_.lines(), Contains(EndsWith("BI Logging Failed NetworkError.invalidHttpStatusCode")));
  platform_.session->requests.clear();
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
  setUpInsight();
  platform_.loop->runFor(seconds(30));
  EXPECT_THAT(batches(), testing::ElementsAre(900u));
  platform_.loop->runFor(seconds(30));
  EXPECT_THAT(batches(), testing::ElementsAre(900u, 100u));
}

TEST_F(BIEventPipelineTest, AnApplicationKeyThatNamesNoSuiteStopsTheProcess) {
  EXPECT_DEATH(setUpInsight(std::string(MemoryDefaultsFactory::refusedName)), "names no suite");
}

}  // namespace
}  // namespace orrelo::test
