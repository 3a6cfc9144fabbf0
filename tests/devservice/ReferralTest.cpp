#include "ServiceFixture.h"

#include <algorithm>
#include <cctype>
#include <thread>

namespace orrelo::devservice {

namespace {

class ReferralTest : public ServiceFixture {
 protected:
  json as(const std::string& user, const std::string& path, const std::string& app = "app") {
    return json::parse(client_->Get(onApp(path, app), httplib::Headers{{"buid", user}})->body);
  }
  json pageOf(const std::string& user, const std::string& app = "app") {
    return as(user, "/campaigns/referral", app)["page"]["page_detail"];
  }
  std::string codeOf(const std::string& user) { return pageOf(user)["code"]; }
  httplib::Result send(const std::string& url, const std::string& user, const json& code) {
    return post(onApp(url), {{"code", code}}, {{"buid", user}});
  }
  json verify(const std::string& user, const json& code) {
    return json::parse(send("/referrals/referral/verification", user, code)->body);
  }
  json authorize(const std::string& user, const json& code) {
    return json::parse(send("/referrals/referral/authorization", user, code)->body);
  }
  int points(const std::string& user) { return as(user, "/my-rewards")["point"]; }
};

TEST_F(ReferralTest, AFriendsCodeRewardsBothOnceAndTheNextServiceKnowsIt) {
  const auto code = codeOf("jun");
  const auto before = pageOf("minji");
  EXPECT_NE(before["referral_message"].get<std::string>().find(codeOf("minji")), std::string::npos);
  EXPECT_EQ(before["current_registered"], 0);
  EXPECT_EQ(before["navigate_enable"], true);
  const auto beginning = points("minji");

  const auto verificationUrl = before["input_url"].get<std::string>();
  EXPECT_EQ(json::parse(send(verificationUrl, "minji", code)->body),
            (json{{"result", true}, {"message", nullptr}}));
  EXPECT_EQ(points("minji"), beginning) << "a verified code gives nothing yet";
  const auto reply = json::parse(send(before["validate_url"].get<std::string>(), "minji", code)->body);
  EXPECT_EQ(reply["result"], true);
  EXPECT_TRUE(reply.at("message").is_null());
  for (const auto* key : {"title", "body", "button_text"}) EXPECT_NE(reply["reward_message"].at(key), "");

  service_.reset();
  startService();
  EXPECT_EQ(authorize("minji", code)["message"], "이미 친구의 초대 코드를 입력했어요.");
  EXPECT_EQ(verify("minji", codeOf("sora"))["result"], false) << "another friend's code";
  for (const auto* user : {"minji", "jun"}) {
    EXPECT_EQ(points(user), beginning + 2000) << user;
    EXPECT_EQ(as(user, "/pointsystem/point-redemption-history?page=0")[0]["title"], "친구 초대");
  }
  EXPECT_EQ(pageOf("jun")["current_registered"], 1);
  EXPECT_EQ(pageOf("jun")["navigate_enable"], true) << "who invited can redeem as well";
  EXPECT_EQ(pageOf("jun")["code"], code);
  EXPECT_EQ(pageOf("minji")["navigate_enable"], false);
  EXPECT_EQ(pageOf("jun", "other")["current_registered"], 0);
}

TEST_F(ReferralTest, OtherCodesAreRefusedWithTheReason) {
  const std::string unknown = "없는 초대 코드예요. 다시 확인해 주세요.";
  const std::string blank = "초대 코드를 입력해 주세요.";
  const auto elsewhere = pageOf("jun", "other")["code"].get<std::string>();
  for (const auto& [code, problem] :
       {std::pair{codeOf("minji"), std::string("내 초대 코드는 입력할 수 없어요.")},
        {"", blank},
        {" \r\n\t", blank},
        {"NOBODY22", unknown},
        {"🎁", unknown},
        {"' OR 1 --", unknown},
        {elsewhere, unknown},
        {std::string(10'000, 'A'), unknown}}) {
    EXPECT_EQ(verify("minji", code), (json{{"result", false}, {"message", problem}}));
    const auto reply = authorize("minji", code);
    EXPECT_EQ(reply["result"], false);
    EXPECT_EQ(reply["message"], problem);
    EXPECT_EQ(reply["reward_message"], (json{{"title", ""}, {"body", ""}, {"button_text", ""}}));
  }
  auto typed = " " + codeOf("jun") + "\n";
  std::ranges::transform(typed, typed.begin(), [](unsigned char c) { return std::tolower(c); });
  EXPECT_EQ(verify("minji", typed)["result"], true);

  for (const auto* url : {"/referrals/referral/verification", "/referrals/referral/authorization"}) {
    for (const json& code : {json(), json(5), json::array()})
      EXPECT_EQ(send(url, "minji", code)->status, 400);
    EXPECT_EQ(client_->Post(onApp(url), {{"buid", "u"}}, "[", "application/json")->status, 400);
    EXPECT_EQ(post(onApp(url), {{"code", "A"}})->status, 400) << "without a user";
  }
  EXPECT_EQ(send("/referrals/stamp/verification", "minji", "A")->status, 404);
  EXPECT_EQ(send("/referrals/nothing/authorization", "minji", "A")->status, 404);
}

TEST_F(ReferralTest, OfManyRequestsAtOnceOneIsAuthorized) {
  const std::vector codes{codeOf("jun"), codeOf("sora")};
  const auto beginning = points("minji");
  {
    std::vector<std::jthread> threads;
    for (std::size_t number = 0; number < 8; ++number) {
      threads.emplace_back([this, code = codes[number % 2]] {
        makeClient()->Post(onApp("/referrals/referral/authorization"), {{"buid", "minji"}},
                           json{{"code", code}}.dump(), "application/json");
      });
    }
  }
  EXPECT_EQ(points("minji"), beginning + 2000);
  EXPECT_EQ(points("jun") + points("sora"), 2 * beginning + 2000);
}

TEST_F(ReferralTest, AWalletThatIsFullPreventsBothRewards) {
  const auto code = codeOf("jun");
  const auto beginning = points("minji");
  post("/admin/wallet?app=app&user=jun", {{"points", 1'000'000'000 - points("jun")}, {"title", "rich"}});
  const auto refused = send("/referrals/referral/authorization", "minji", code);
  EXPECT_EQ(json::parse(refused->body)["result"], false);
  EXPECT_EQ(refused->get_header_value("Orrelo-Note"),
            "the user has 1000000000 points and cannot have 1000002000");
  EXPECT_EQ(points("minji"), beginning);
  EXPECT_EQ(verify("minji", code)["result"], true) << "nothing is redeemed";
}

TEST_F(ReferralTest, AMistakeInTheFileIsTold) {
  TemporaryFolder folder;
  scenario_ = folder.path();
  service_.reset();
  startService();
  const auto error = [&](const json& referral) {
    json file{{"campaign",
               {{"id", "friends"},
                {"page", {{"code", "{{code}}"}, {"count", {"{{friends}}", "{{friends}} of 9"}}}}}},
              {"states", {{"waiting", json::object()}}},
              {"first_state", "waiting"}};
    if (!referral.is_null()) file["referral"] = referral;
    folder.write("campaigns/friends.json", file.dump());
    return as("minji", "/campaigns/friends").value("error", "none");
  };
  const json gives{{"tickets", 1}};
  json referral{{"to", "waiting"},
                {"gives", gives},
                {"gives_inviter", gives},
                {"reward_message", {{"title", "t"}, {"body", "b"}, {"button_text", "ok"}}}};
  EXPECT_EQ(error(referral), "none");
  EXPECT_EQ(as("minji", "/campaigns/friends")["page"]["count"], (json{0, "0 of 9"}));
  EXPECT_EQ(as("", "/campaigns/friends")["page"]["code"], "") << "nobody is signed in";
  EXPECT_EQ(as(std::string(4'097, 'u'), "/campaigns/friends").value("error", "none"),
            "\"buid\" is longer than 4096 bytes");
  EXPECT_EQ(error(json()), "campaigns/friends.json: \"{{code}}\" needs a \"referral\"");
  for (const auto* key : {"to", "gives", "gives_inviter", "reward_message"}) {
    auto without = referral;
    without.erase(key);
    EXPECT_NE(error(without), "none") << key;
  }
  referral["reward_message"].erase("body");
  EXPECT_EQ(error(referral), "campaigns/friends.json: \"reward_message\" of \"referral\" needs a \"body\"");
}

}  // namespace

}  // namespace orrelo::devservice
