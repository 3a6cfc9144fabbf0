#include "config/ConfigLocalDataSource.h"
#include "config/ConfigRemoteDataSource.h"
#include "config/ConfigRepository.h"
#include "config/FetchConfigResponse.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/Observable.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

class ConfigRepositoryTest : public testing::Test {
 protected:
  void start() {
    repository_ = ConfigRepositoryImpl::create(
        ConfigLocalDataSource(suite_),
        ConfigRemoteDataSource({"https://api.example/sdk/app", {{"Kelso-UUID", "u"}}},
                               std::make_shared<HTTPClientImpl>()),
        [clock = platform_.clock] { return clock->now(); },
        std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::standard));
    platform_.loop->run();
  }
  /// Starts, and answers the fetch that starting makes.
  void startWith(URLSessionResult first) {
    platform_.session->lay(std::move(first));
    start();
  }

  /// The output of one fetch; `end` is "done" or the error.
  struct Answer {
    std::vector<Config> configs;
    std::string end;
  };
  std::shared_ptr<Answer> ask() {
    auto answer = std::make_shared<Answer>();
    asked_.push_back(
        FetchConfigUseCaseImpl(repository_)
            .fetch()
            .subscribe({.onNext = [answer](const Config& config) { answer->configs.push_back(config); },
                        .onError = [answer](const Error& error) { answer->end = error.description(); },
                        .onCompleted = [answer] { answer->end = "done"; }}));
    platform_.loop->run();
    return answer;
  }
  void expectAnswer(const Config& expected, const std::string& what) {
    const auto answer = ask();
    EXPECT_EQ(answer->configs, std::vector{expected}) << what;
    EXPECT_EQ(answer->end, "done") << what;
  }

  void answer(URLSessionResult reply) {
    platform_.session->answer(std::move(reply));
    platform_.loop->run();
  }
  std::size_t requests() const { return platform_.session->requests.size(); }
  static URLSessionResult good(bool sdkEnable = true) {
    return ScriptedURLSession::reply(200, configReply(sdkEnable));
  }
  static Config config(bool sdkEnable = true) {
    return FetchConfigResponse::decode(configReply(sdkEnable)).toConfig();
  }
  static URLSessionResult offline() { return ScriptedURLSession::failure(URLError::cannotConnectToHost); }
  void store(const std::string& json) {
    const auto* const bytes = reinterpret_cast<const std::byte*>(json.data());
    suite_->set("ols_config", DefaultsData(bytes, bytes + json.size()));
  }

  TestPlatform platform_;
  std::shared_ptr<UserDefaults> suite_ = platform_.defaults->suite("app");
  std::shared_ptr<ConfigRepositoryImpl> repository_;
  std::vector<reactive::Disposable> asked_;
};

TEST_F(ConfigRepositoryTest, StartingAsksTheServiceAndKeepsTheAnswer) {
  startWith(good());
  ASSERT_EQ(requests(), 1U);
  const auto& request = platform_.session->requests.front();
  EXPECT_EQ(request.url.text(), "https://api.example/sdk/app/config");
  EXPECT_EQ(request.method, "GET");
  EXPECT_EQ(request.headers, (HTTPHeaders{{"Kelso-UUID", "u"}}));
  EXPECT_EQ(ConfigLocalDataSource(suite_).load(), config());
}

TEST_F(ConfigRepositoryTest, AnAnswerServesForSixtySecondsTheLastMomentIncluded) {
  startWith(good(true));
  platform_.session->lay(good(false));
  platform_.clock->advance(seconds(60));
  expectAnswer(config(true), "at expiry");
  EXPECT_EQ(requests(), 1U);
  platform_.clock->advance(microseconds(1));
  expectAnswer(config(false), "after expiry");
  expectAnswer(config(false), "remembered anew");
  EXPECT_EQ(requests(), 2U);
  platform_.clock->advance(seconds(60));
  expectAnswer(config(false), "counted from the second answer");
  EXPECT_EQ(requests(), 2U);
}

TEST_F(ConfigRepositoryTest, FallsBackToTheStoredCopyThenToTheDefaults) {
  startWith(offline());
  platform_.session->lay(offline());
  expectAnswer(Config::defaults(), "nothing stored");
  store(config(true).encode());
  platform_.session->lay(offline());
  expectAnswer(config(true), "stored");
  platform_.session->lay(good(false));
  expectAnswer(config(false), "failures are not remembered");
  EXPECT_EQ(requests(), 4U);

  platform_.clock->advance(seconds(61));
  platform_.session->lay(offline());
  expectAnswer(config(false), "an expired answer is not used, its stored copy is");
}

TEST_F(ConfigRepositoryTest, AStoredCopyThatCannotBeReadCountsAsNone) {
  startWith(offline());
  const auto whole = config().encode();
  for (const auto& bytes : {std::string(), std::string("{}"), whole.substr(0, whole.size() - 1)}) {
    store(bytes);
    platform_.session->lay(offline());
    expectAnswer(Config::defaults(), bytes.substr(0, 20));
  }
  suite_->set("ols_config", whole);  // a text, not bytes
  platform_.session->lay(offline());
  expectAnswer(Config::defaults(), "text");
}

TEST_F(ConfigRepositoryTest, NoReplyOfTheServiceFailsTheQuestion) {
  store(config(false).encode());
  startWith(offline());
  const auto whole = configReply();
  std::vector<URLSessionResult> replies;
  for (const int status : {204, 301, 500}) {
    replies.push_back(ScriptedURLSession::reply(status, status == 204 ? "" : whole));
  }
  for (const auto& body : {whole.substr(0, whole.size() / 2), std::string("<html>"), std::string("[]")}) {
    replies.push_back(ScriptedURLSession::reply(200, body));
  }
  replies.push_back({});
  replies.push_back(ScriptedURLSession::failure(URLError::dataLengthExceedsMaximum));
  const auto before = suite_->data("ols_config");
  for (std::size_t i = 0; i < replies.size(); ++i) {
    platform_.session->lay(replies[i]);
    expectAnswer(config(false), "reply " + std::to_string(i));
  }
  EXPECT_EQ(suite_->data("ols_config"), before);
  EXPECT_EQ(requests(), 1 + replies.size());
}

TEST_F(ConfigRepositoryTest, QuestionsAtOnceAskEachForItself) {
  start();  // the warming fetch waits
  const auto first = ask();
  const auto second = ask();
  EXPECT_EQ(requests(), 3U);
  answer(offline());
  answer(good(true));
  EXPECT_EQ(first->configs, std::vector{config(true)});
  EXPECT_TRUE(second->configs.empty());
  answer(good(false));
  EXPECT_EQ(second->configs, std::vector{config(false)});
  expectAnswer(config(false), "the last answer is remembered");
}

}  // namespace
}  // namespace orrelo::test
