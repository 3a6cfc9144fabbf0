#include "base/Json.h"
#include "base/Logger.h"
#include "kit/PushComponent.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>
#include <mutex>
#include <thread>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Texts = std::vector<std::string>;

class PushTokenTest : public testing::Test {
 protected:
  PushTokenTest() {
    // Keeps the level and the message of a line "[OrreloSDK][ERROR] <date> <message>".
    setLogSink([this](std::string_view line) {
      const std::lock_guard lock(mutex_);
      const std::string level(line.substr(11, line.find(' ') - 10));
      log_.push_back(level + std::string(line.substr(line.find("+0000 ") + 6)));
    });
    restart();
  }
  ~PushTokenTest() override { setLogSink(nullptr, false); }

  void restart() {
    component_ = std::make_unique<PushComponent>(
        NetworkConfig{"https://service.test/orreloservice/sdk/app", {{"Kelso-UUID", "device"}}});
  }
  /// Gives tokens and users: "token:a", "user:m"; "signout" is an absent user.
  void give(const Texts& steps) {
    for (const auto& step : steps) {
      const auto value = step.substr(step.find(':') + 1);
      if (step.starts_with("token")) {
        component_->orreloPush->setToken({value});
      } else {
        UserManager().setUserId(step == "signout" ? std::nullopt : std::optional(value));
      }
      platform_.loop->run();
    }
  }
  /// The tokens and users that were uploaded since the last call.
  std::vector<std::pair<std::string, std::string>> uploaded() {
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const auto& request : std::exchange(platform_.session->requests, {})) {
      JsonParser parser;
      const auto body = parser.parse(*request.body).objectValue();
      EXPECT_EQ(request.headers.at("buid"), body.text("buid"));
      pairs.emplace_back(body.text("token"), body.text("buid"));
    }
    return pairs;
  }
  Texts logged() { return std::exchange(log_, {}); }

  TestPlatform platform_;
  std::mutex mutex_;
  Texts log_;
  std::unique_ptr<PushComponent> component_;
};

TEST_F(PushTokenTest, TheLatestPairIsUploadedAtEachChangeOfEither) {
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(204); };
  const std::vector<std::pair<Texts, Texts>> cases{
      {{"token:a"}, {}},
      {{"user:m"}, {}},
      {{"token:a", "user:m"}, {"a/m"}},
      {{"user:m", "token:a"}, {"a/m"}},
      {{"user:m", "user:n", "token:a", "token:b"}, {"a/n", "b/n"}},
      {{"token:a", "user:m", "user:n", "user:n"}, {"a/m", "a/n", "a/n"}},
      {{"token:", "user:"}, {"/"}},
      {{"token:a", "signout"}, {}},
      // A sign-out only drops the absent value, so a later token is uploaded for the former user.
      {{"token:a", "user:m", "signout", "token:b"}, {"a/m", "b/m"}},
  };
  for (const auto& [steps, expected] : cases) {
    restart();
    give(steps);
    Texts pairs;
    for (const auto& [token, user] : uploaded()) pairs.push_back(token + "/" + user);
    EXPECT_EQ(pairs, expected) << testing::PrintToString(steps);
  }
}

TEST_F(PushTokenTest, ARequestAndItsLinesInTheLog) {
  give({"token:a\"b", "user:민지"});
  EXPECT_THAT(logged(), ElementsAre("[TRACE] token:PushToken(rawValue: a\"b) is set"));
  const auto& request = platform_.session->requests.at(0);
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.url.text(), "https://service.test/orreloservice/sdk/app/token");
  EXPECT_EQ(request.headers,
            (HTTPHeaders{{"Content-Type", "application/json"}, {"Kelso-UUID", "device"}, {"buid", "민지"}}));
  EXPECT_EQ(request.body, R"({"token":"a\"b","buid":"민지"})");
  platform_.session->answer(ScriptedURLSession::reply(200, "not read"));
  EXPECT_THAT(logged(),
              ElementsAre("[DEBUG] Token save success. token:PushToken(rawValue: a\"b), userId:민지"));

  uploaded();
  const std::string large(1 << 20, 't');
  give({"token:" + large});
  EXPECT_THAT(uploaded(), ElementsAre(Pair(large, "민지")));
}

TEST_F(PushTokenTest, AFailureEndsTheUploadsUntilTheNextStart) {
  give({"token:a", "user:m", "user:n"});
  EXPECT_EQ(uploaded().size(), 2U) << "the second does not wait for the first";
  logged();
  platform_.session->answer(ScriptedURLSession::reply(500));
  EXPECT_EQ(platform_.session->cancelled, 1);
  give({"token:b", "user:o"});
  EXPECT_THAT(uploaded(), IsEmpty());
  EXPECT_THAT(logged(), ElementsAre("[ERROR] Token save failure: NetworkError.invalidHttpStatusCode"));

  restart();
  give({"user:p", "token:c"});
  EXPECT_THAT(uploaded(), ElementsAre(Pair("c", "p")));
  component_->orreloPush->stopSending();
  EXPECT_EQ(platform_.session->cancelled, 2);
  give({"token:d", "user:q"});
  EXPECT_THAT(uploaded(), IsEmpty());
}

TEST_F(PushTokenTest, AtMostFourUploadsRunAtATimeAndTheOthersFollowInOrder) {
  Texts steps{"user:m"};
  for (int i = 0; i < 50; ++i) steps.push_back("token:" + std::to_string(i / 2));
  give(steps);
  auto& session = *platform_.session;
  for (std::size_t answered = 0; answered < 50; ++answered) {
    EXPECT_EQ(session.waiting.size(), std::min<std::size_t>(4, 50 - answered));
    session.answer(ScriptedURLSession::reply(204));
    platform_.loop->run();
  }
  const auto pairs = uploaded();
  ASSERT_EQ(pairs.size(), 50U);
  for (std::size_t i = 0; i < 50; ++i) EXPECT_THAT(pairs[i], Pair(std::to_string(i / 2), "m"));
}

TEST_F(PushTokenTest, EightThreadsChangeOneOfBothAtATime) {
  platform_.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(204); };
  give({"token:first", "user:first"});
  constexpr int count = 125;
  std::vector<std::jthread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([this, i] {
      for (int n = 0; n < count; ++n) {
        const auto name = std::to_string(i) + "." + std::to_string(n);
        component_->orreloPush->setToken({name});
        UserManager().setUserId(name);
      }
    });
  }
  threads.clear();
  platform_.loop->run();
  const auto pairs = uploaded();
  ASSERT_EQ(pairs.size(), 1U + 2 * 8 * count);
  for (std::size_t i = 1; i < pairs.size(); ++i) {
    const auto& [token, user] = pairs[i];
    EXPECT_NE(token == pairs[i - 1].first, user == pairs[i - 1].second) << "both or none changed";
  }
  const auto succeeded = std::count_if(log_.begin(), log_.end(), [](const auto& line) {
    return line.starts_with("[DEBUG] Token save success. ");
  });
  EXPECT_EQ(static_cast<std::size_t>(succeeded), pairs.size());
}

}  // namespace
}  // namespace orrelo::test
