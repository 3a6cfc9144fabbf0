#include "Insight.h"
#include "base/Json.h"
#include "events/UserEventTracker.h"
#include "model/UserManager.h"
#include "support/LogCapture.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

class UserEventTrackerTest : public testing::Test {
 protected:
  UserEventTrackerTest() {
    setUserEventDelegate(listener_);
    setUpInsight();
    setCurrentUserId("user-1");
  }
  ~UserEventTrackerTest() override {
    setUserEventDelegate(nullptr);
    setCurrentUserId(std::nullopt);
  }

  std::string sent() {
    platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
    platform_.loop->runFor(std::chrono::seconds(30));
    return platform_.session->requests.empty() ? "" : *platform_.session->requests.back().body;
  }

  TestPlatform platform_;
  std::shared_ptr<Reports> listener_ = std::make_shared<Reports>();
};

TEST_F(UserEventTrackerTest, ReachesTheDelegateAndThePipelineOnceEach) {
  const LogCapture log;
  UserEventTracker::track(UserEventName::visit, {{UserEventValueKey::pageName, "home"}});
  UserEventTracker::track(UserEventName::tooltipShow);

  ASSERT_EQ(listener_->events.size(), 2u);
  EXPECT_EQ(listener_->events[0].name, "ol_visit");
  EXPECT_EQ(listener_->events[0].values, (EventValues{{"page_name", "home"}}));
  EXPECT_EQ(listener_->events[1].name, "ol_tooltip_show");
  EXPECT_FALSE(listener_->events[1].values);
  EXPECT_THAT(log.lines().at(0),
              testing::EndsWith("[TRACE] 2023-11-14 22:13:20.000000+0000 userEventDidOccur. name:ol_visit "
                                "values:[\"page_name\": \"home\"]"));
  EXPECT_THAT(log.lines().at(1), testing::EndsWith("name:ol_tooltip_show values:"));

  const auto body = sent();
  JsonParser parser;
  const auto events = parser.parse(body).arrayValue();
  EXPECT_EQ(events.size(), 2u);
  EXPECT_THAT(body, testing::HasSubstr(R"("user_id":"user-1")"));
}

TEST_F(UserEventTrackerTest, SkippingTheKitsOwnPipelineLeavesTheDelegate) {
  UserEventTracker::track(UserEventName::visit, {}, true);
  EXPECT_EQ(listener_->events.size(), 1u);
  EXPECT_EQ(sent(), "");
}

TEST_F(UserEventTrackerTest, NamesStandAtTheirNumbers) {
  EXPECT_EQ(rawValue(static_cast<UserEventName>(8)), "ol_visit");
  EXPECT_EQ(rawValue(static_cast<UserEventName>(17)), "ol_referral_code_authorized");
  EXPECT_EQ(rawValue(static_cast<UserEventName>(22)), "ol_roulette_spin_wheel_end");
  EXPECT_EQ(rawValue(static_cast<UserEventName>(26)), "ol_induce_update_button_click");
  EXPECT_EQ(userEventValueKey("reward_tab_item_name"), UserEventValueKey::rewardTabItemName);
  EXPECT_EQ(userEventValueKey("page"), std::nullopt);
}

}  // namespace
}  // namespace orrelo::test
