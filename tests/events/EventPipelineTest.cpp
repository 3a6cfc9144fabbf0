#include "base/Json.h"
#include "events/Event.h"
#include "events/RefusalWait.h"
#include "kit/EventComponent.h"
#include "support/ExplanationCapture.h"
#include "support/LogCapture.h"
#include "support/TestPlatform.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class EventPipelineTest : public testing::Test {
 protected:
  EventPipelineTest() { restart(); }

  Event save(const std::string& name, seconds ago = seconds(0)) {
    Event event{nextId(), "user-1", name, {{"k", "v"}}, platform_.clock->now() - ago};
    component_->saveEventUseCase.save(event);
    platform_.loop->run();
    return event;
  }

  std::vector<std::string> sentNames() const {
    std::vector<std::string> names;
    for (const auto& request : platform_.session->requestsTo("/event")) {
      JsonParser parser;
      names.push_back(parser.parse(*request.body).objectValue().text("event_name"));
    }
    return names;
  }

  void restart() {
    component_.reset();
    component_ = std::make_unique<EventComponent>(networkConfig_);
  }

  static Uuid nextId() { return Platform::current().random->uuid(); }

  const NetworkConfig networkConfig_{"https://service.test/orreloservice/sdk/app",
                                     {{"Kelso-UUID", "device"}}};
  TestPlatform platform_;
  const LogCapture log_;
  const ExplanationCapture explanations_;
  std::unique_ptr<EventComponent> component_;
};

TEST_F(EventPipelineTest, SendsAtTheSaveAndForgetsWhatTheServiceTook) {
  platform_.session->lay(ScriptedURLSession::reply(204));
  const auto event = save("opened");

  ASSERT_EQ(platform_.session->requests.size(), 1u);
  const auto& request = platform_.session->requests.front();
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.url.text(), "https://service.test/orreloservice/sdk/app/event");
  EXPECT_EQ(request.headers, (HTTPHeaders{{"Content-Type", "application/json"}, {"Kelso-UUID", "device"}}));
  EXPECT_EQ(
      *request.body,
      "{\"k\":\"v\",\"event_id\":\"" + event.id.text() +
          "\",\"event_name\":\"opened\",\"event_time\":\"2023-11-14T22:13:20\",\"user_id\":\"user-1\"}");
  EXPECT_THAT(log_.lines(), Contains(HasSubstr("[DEBUG]")));
  EXPECT_THAT(log_.lines(), Contains(EndsWith("Event Processing Success " + description(event))));

  platform_.loop->runFor(seconds(60));
  EXPECT_EQ(platform_.session->requests.size(), 1u);
}

TEST_F(EventPipelineTest, ValuesGiveWayToTheEventsOwnKeysAndAUserValueSurvivesWithoutAUser) {
  platform_.session->lay(ScriptedURLSession::reply(200));
  component_->saveEventUseCase.save(
      {nextId(),
       std::nullopt,
       "opened",
       {{"event_id", "mine"}, {"event_name", "mine"}, {"event_time", "mine"}, {"user_id", "mine"}},
       platform_.clock->now()});
  platform_.loop->run();
  JsonParser parser;
  const auto body = parser.parse(*platform_.session->requests.at(0).body).objectValue();
  EXPECT_EQ(body.size(), 4u);
  EXPECT_EQ(body.text("event_name"), "opened");
  EXPECT_NE(body.text("event_id"), "mine");
  EXPECT_NE(body.text("event_time"), "mine");
  EXPECT_EQ(body.text("user_id"), "mine");
}

TEST_F(EventPipelineTest, SendsTheOldestFirstOneRequestAtATime) {
  save("second", seconds(10));
  save("first", seconds(20));
  save("third", seconds(5));
  EXPECT_THAT(sentNames(), ElementsAre("second"));
  platform_.session->answer(ScriptedURLSession::reply(200));
  platform_.loop->run();
  EXPECT_THAT(sentNames(), ElementsAre("second", "first"));
  platform_.session->answer(ScriptedURLSession::reply(200));
  platform_.loop->run();
  EXPECT_THAT(sentNames(), ElementsAre("second", "first", "third"));
}

TEST_F(EventPipelineTest, ABacklogLeavesByIdleTicksEveryTenSecondsAfterARestart) {
  // The first failure is retried, the second ends the pipeline; all three events stay stored.
  for (const auto* name : {"a", "b", "c"}) {
    platform_.session->lay(ScriptedURLSession::reply(500));
    save(name, seconds(3));
    platform_.clock->advance(seconds(1));
  }
  EXPECT_EQ(platform_.session->requests.size(), 2u);
  EXPECT_THAT(log_.lines(),
              Contains(EndsWith("Event Processing Failure: NetworkError.invalidHttpStatusCode")));

  platform_.session->requests.clear();
  platform_.session->laid.clear();
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
  restart();
  platform_.loop->runFor(milliseconds(9'999));
  EXPECT_TRUE(platform_.session->requests.empty());
  platform_.loop->runFor(milliseconds(1));
  EXPECT_THAT(sentNames(), ElementsAre("a"));
  platform_.loop->runFor(seconds(10));
  EXPECT_THAT(sentNames(), ElementsAre("a", "b"));
  platform_.loop->runFor(seconds(10));
  EXPECT_THAT(sentNames(), ElementsAre("a", "b", "c"));
}

TEST_F(EventPipelineTest, OneSendsAtATimeAndTheNextTakesOverWhenItHasEnded) {
  EventComponent other(networkConfig_);
  platform_.session->lay(ScriptedURLSession::reply(500));
  save("a");
  other.saveEventUseCase.save({nextId(), "user-1", "b", {}, platform_.clock->now()});
  platform_.loop->run();
  EXPECT_THAT(sentNames(), ElementsAre("a"));
  platform_.session->lay(ScriptedURLSession::reply(500));
  platform_.loop->runFor(seconds(10));
  EXPECT_THAT(sentNames(), ElementsAre("a", "a"));
  platform_.session->lay(ScriptedURLSession::reply(200));
  platform_.loop->runFor(seconds(10));
  EXPECT_THAT(sentNames(), ElementsAre("a", "a", "a"));
}

TEST_F(EventPipelineTest, TheIdleTickIsCountedFromTheLastTick) {
  platform_.session->lay(ScriptedURLSession::failure(URLError::timedOut));
  platform_.loop->runFor(seconds(7));
  save("opened");
  EXPECT_EQ(platform_.session->requests.size(), 1u);
  platform_.session->lay(ScriptedURLSession::reply(200));
  platform_.loop->runFor(milliseconds(9'999));
  EXPECT_EQ(platform_.session->requests.size(), 1u);
  platform_.loop->runFor(milliseconds(1));
  ASSERT_EQ(platform_.session->requests.size(), 2u);
  EXPECT_EQ(platform_.session->requests[0].body, platform_.session->requests[1].body)
      << "the same id and time";
}

TEST_F(EventPipelineTest, TheSecondFailureEndsItHoweverMuchLater) {
  platform_.session->lay(ScriptedURLSession::reply(503));
  save("a");
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
  platform_.loop->runFor(seconds(3600));
  EXPECT_THAT(sentNames(), ElementsAre("a", "a"));

  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(301); };
  save("b");
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
  save("c");
  platform_.loop->runFor(seconds(3600));
  EXPECT_THAT(sentNames(), ElementsAre("a", "a", "b"));

  restart();
  platform_.loop->runFor(seconds(20));
  EXPECT_THAT(sentNames(), ElementsAre("a", "a", "b", "b", "c"));
}

TEST_F(EventPipelineTest, AStoreThatRefusesAStepIsAskedAgainAndIsNoFailure) {
  SQLite::Database other((platform_.folder.path() / "OLSCoreDataEvent.sqlite").string(),
                         SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  std::vector<std::string> names;
  for (const auto* name : {"a", "b", "c"}) {
    names.emplace_back(name);
    save(name);
    other.exec("BEGIN IMMEDIATE");  // the deletion is refused
    platform_.session->answer(ScriptedURLSession::reply(200));
    platform_.loop->runFor(milliseconds(600));
    other.exec("ROLLBACK");
    platform_.loop->runFor(seconds(30));
  }
  EXPECT_THAT(sentNames(), ElementsAreArray(names));
  EXPECT_THAT(log_.lines(), Not(Contains(HasSubstr("Failure"))));
  EXPECT_THAT(explanations_.lines(),
              Contains(HasSubstr("OLSCoreDataEvent.sqlite: deleting sent events")).Times(3));
}

TEST(RefusalWait, GrowsItsPausesUntilTheStepSucceedsFailsOrIsCancelled) {
  const auto clock = std::make_shared<ManualClock>();
  const auto loop = std::make_shared<ManualLoop>(clock);
  const auto scheduler = std::make_shared<reactive::MainScheduler>(loop);
  const ExplanationCapture log;
  std::vector<std::int64_t> attempts;
  std::optional<Error> answer = makeStoreRefusal("full");
  const auto step = reactive::create<int>([&](const reactive::AnyObserver<int>& observer) {
    attempts.push_back(clock->steady().count() / 100'000);
    answer ? observer.onError(*answer) : (observer.onNext(1), observer.onCompleted());
    return reactive::Disposables::create();
  });
  std::string outcome;
  const auto subscribe = [&] {
    clock->advance(-clock->steady());
    attempts.clear();
    return waitingOutRefusals(
               step, [] { return std::string("step"); }, scheduler)
        .subscribe({.onNext = [&](int) { outcome += "next "; },
                    .onError = [&](const Error& error) { outcome += error.caseName() + ' '; },
                    .onCompleted = [&] { outcome += "completed "; }});
  };
  subscribe();
  loop->runFor(seconds(130));
  EXPECT_THAT(attempts, ElementsAre(0, 1, 3, 7, 15, 31, 63, 127, 255, 511, 811, 1111));
  EXPECT_EQ(log.lines().size(), 1u);
  answer.reset();
  loop->runFor(seconds(30));
  EXPECT_EQ(outcome, "next completed ");

  answer = Error("SQLite", "readOnly");
  const auto cancelled = subscribe();
  cancelled.dispose();
  loop->runFor(seconds(30));
  EXPECT_THAT(attempts, ElementsAre(0));
  subscribe();
  answer = Error("SQLite", "corrupt");
  loop->runFor(seconds(30));
  EXPECT_EQ(outcome, "next completed corrupt ");
}

TEST_F(EventPipelineTest, DropsWhatIsADayOldUnsent) {
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(200); };
  save("too old", seconds(86401));
  save("just too old", seconds(86400));
  save("still young", seconds(86399));
  EXPECT_THAT(sentNames(), ElementsAre("still young"));
}

TEST_F(EventPipelineTest, LettingItGoCancelsTheRequestAndKeepsTheEvent) {
  save("opened");
  component_.reset();
  EXPECT_EQ(platform_.session->cancelled, 1);
  restart();
  platform_.session->lay(ScriptedURLSession::reply(200));
  platform_.loop->runFor(seconds(10));
  EXPECT_THAT(sentNames(), ElementsAre("opened", "opened"));
}

}  // namespace
}  // namespace orrelo::test
