#include "ReferralFixture.h"
#include "reactive/Observable.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

class ReferralServiceTest : public ReferralFixture {
 protected:
  static std::string described(const ReferralVerificationResult& result) {
    const auto* const error = std::get_if<ReferralVerificationResult::Error>(&result.value);
    return error == nullptr ? "verified" : "refused: " + error->message;
  }
  static std::string described(const ReferralAuthorizationResult& result) {
    const auto* const error = std::get_if<ReferralAuthorizationResult::Error>(&result.value);
    if (error != nullptr) return "refused: " + error->message;
    const auto& reward = std::get<ReferralAuthorizationResult::Authorized>(result.value).rewardMessage;
    return reward.title + ", " + reward.message + ", " + reward.buttonText;
  }
  /// The elements and the end of the stream after the service's reply.
  template <class Result>
  std::vector<std::string> ask(const reactive::Maybe<Result>& call, int status = 200,
                               const std::string& body = "") {
    std::vector<std::string> heard;
    const auto handle =
        call.subscribe({.onNext = [&](const Result& result) { heard.push_back(described(result)); },
                        .onError = [&](const Error& error) { heard.push_back(error.domain()); },
                        .onCompleted = [&] { heard.emplace_back("done"); }});
    platform_.loop->run();
    if (!platform_.session->waiting.empty()) answer(status, body);
    return heard;
  }
  std::vector<std::string> authorized(const std::string& body) {
    return ask(service_->authorize("A", "minji"), 200, body);
  }
};

TEST_F(ReferralServiceTest, BothStepsPostTheCodeToThePathsOfTheFirstReferralCampaign) {
  EXPECT_THAT(ask(service_->verify("두\n줄 \"🎁\"", "jun"), 200, verification(true)),
              ElementsAre("verified", "done"));
  EXPECT_THAT(ask(service_->authorize("\xFF", "jun"), 200, authorization()),
              ElementsAre("축하해요, 500P를 받았어요, 확인", "done"));
  const auto& requests = platform_.session->requests;
  ASSERT_EQ(requests.size(), 4U) << "each step asks for the campaigns";
  EXPECT_EQ(requests[0].url.text(), "https://api.example/sdk/shop/campaigns");
  EXPECT_EQ(requests[1].url.text(), "https://api.example/sdk/shop/referral/c-referral-5/verify");
  EXPECT_EQ(requests[3].url.text(), "https://api.example/sdk/shop/referral/c-referral-5/authorize");
  EXPECT_EQ(requests[1].body, R"({"code":"두\n줄 \"🎁\""})");
  EXPECT_EQ(requests[3].body, R"({"code":"�"})");
  for (const auto& request : requests) {
    EXPECT_EQ(request.headers, (HTTPHeaders{{"Kelso-UUID", "u"}, {"buid", "jun"}}));
  }
  EXPECT_EQ(requests[3].method, "POST");
}

TEST_F(ReferralServiceTest, ARefusalHasTheServicesReasonOrNone) {
  EXPECT_THAT(ask(service_->verify("A", "minji"), 200, verification(false, "없는 코드예요.")),
              ElementsAre("refused: 없는 코드예요.", "done"));
  EXPECT_THAT(ask(service_->verify("A", "minji"), 200, verification(false)),
              ElementsAre("refused: ", "done"));
  EXPECT_THAT(authorized(authorization("result", Json(false))), ElementsAre("refused: ", "done"));
}

TEST_F(ReferralServiceTest, WithoutAReferralCampaignTheStreamIsEmpty) {
  for (const auto& list : {Json::array(), Json::array({campaigns()[0]})}) {
    list_ = ScriptedURLSession::reply(200, list.dump());
    EXPECT_THAT(ask(service_->verify("A", "minji")), ElementsAre("done"));
    EXPECT_THAT(ask(service_->authorize("A", "minji")), ElementsAre("done"));
  }
  EXPECT_EQ(requestsTo("verify").size() + requestsTo("authorize").size(), 0U);
}

TEST_F(ReferralServiceTest, EveryFailureOnTheWayIsAnError) {
  EXPECT_THAT(ask(service_->verify("A", "minji"), 500), ElementsAre("NetworkError"));
  list_ = ScriptedURLSession::reply(503);
  EXPECT_THAT(ask(service_->verify("A", "minji")), ElementsAre("NetworkError"));
  auto campaign = campaigns()[1];
  for (const auto* const path : {"/a b", "/%", "/[", "\n", ":99999999", "//\\"}) {
    campaign["page"]["page_detail"]["input_url"] = path;
    list_ = ScriptedURLSession::reply(200, Json::array({campaign}).dump());
    EXPECT_THAT(ask(service_->verify("A", "minji")), ElementsAre("NetworkError")) << path;
  }
}

TEST_F(ReferralServiceTest, EveryFieldOfBothRepliesIsRequired) {
  const std::vector<std::string> undecodable{"DecodingError"};
  const Json wrong = Json::array({Json::array()});
  for (const auto* const key : {"result", "reward_message", "reward_message/title", "reward_message/body",
                                "reward_message/button_text"}) {
    for (const auto& value : {std::optional<Json>(), std::optional(Json(nullptr)), std::optional(wrong)}) {
      EXPECT_EQ(authorized(authorization(key, value)), undecodable) << key;
    }
  }
  EXPECT_EQ(authorized(authorization("message", std::nullopt)), undecodable);
  EXPECT_EQ(authorized(authorization("message", Json(5))), undecodable);
  for (const auto* const body :
       {"", "null", "[]", "{}", R"({"result":true})", R"({"message":null})", R"({"result":1,"message":null})",
        R"({"result":"true","message":null})", R"({"result":true,"message":[]})"}) {
    EXPECT_EQ(ask(service_->verify("A", "minji"), 200, body), undecodable) << body;
  }
}

}  // namespace
}  // namespace orrelo::test
