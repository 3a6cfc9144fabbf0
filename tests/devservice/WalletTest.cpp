#include "ServiceFixture.h"

#include <thread>

namespace orrelo::devservice {

namespace {

const std::string balancePath = "/pointsystem/my-point";
const std::string historyPath = "/pointsystem/point-redemption-history?page=";

class WalletTest : public ServiceFixture {
 protected:
  void SetUp() override {
    now_ = std::chrono::sys_days(std::chrono::May / 1 / 2026) + std::chrono::hours(12);
    ServiceFixture::SetUp();
  }
  httplib::Result ask(const std::string& path, const std::string& user = "u") {
    return client_->Get(onApp(path), httplib::Headers{{"buid", user}});
  }
  json as(const std::string& user, const std::string& path) {
    const auto result = ask(path, user);
    return result && result->status == 200 ? json::parse(result->body) : json();
  }
  json history(const std::string& user, int page) { return as(user, historyPath + std::to_string(page)); }
  httplib::Result issue(const json& id, const std::string& user = "u") {
    return post(onApp("/gifticons/download"), {{"gifticon_id", id}}, {{"buid", user}});
  }
  httplib::Result change(const json& wanted, const std::string& user = "u") {
    return post("/admin/wallet?app=app&user=" + user, wanted);
  }
  std::string problemWith(const json& wanted) {
    const auto reply = change(wanted);
    return reply->status == 400 ? json::parse(reply->body)["error"].get<std::string>() : "no problem";
  }
};

TEST_F(WalletTest, TheBundledScenarioPlaysItAndTheNextServiceKnowsIt) {
  const auto before = as("minji", balancePath);
  EXPECT_EQ(client_->Get(before["icon_url"].get<std::string>().substr(service_->baseUrl().size()))->status,
            200);
  auto points = before["amount"].get<int>();
  const auto counts = as("minji", "/my-rewards");
  for (int round = 0; round < 2; ++round) {
    for (const auto* action :
         {"attendance/check-in", "roulette/spin", "roulette/stop", "scratch/scratched"}) {
      as("minji", "/campaigns/" + std::string(action));
    }
  }
  points += 10 + 1000;
  EXPECT_EQ(as("minji", balancePath)["amount"], points) << "the second time nothing is won";
  const auto rows = history("minji", 0);
  EXPECT_EQ(rows[0]["title"], "행운의 룰렛");
  EXPECT_EQ(rows[0]["point_amount"], 1000);
  EXPECT_EQ(rows[1]["title"], "출석체크");
  EXPECT_GT(rows[0]["id"], rows[1]["id"]);

  service_.reset();
  startService();
  const auto after = as("minji", "/my-rewards");
  EXPECT_EQ(after["point"], points);
  EXPECT_EQ(after["ticket"], counts["ticket"].get<int>() + 1);
  EXPECT_EQ(after["gifticon"], counts["gifticon"].get<int>() + 1);
  EXPECT_EQ(as("minji", "/gifticons")[0]["title"], "복권 당첨 커피 쿠폰");
  EXPECT_EQ(as("jun", balancePath), before);
  EXPECT_EQ(client_->Get(onApp(balancePath, "other"), httplib::Headers{{"buid", "minji"}})->body,
            before.dump());
}

TEST_F(WalletTest, TheBundledScenarioHasThreePagesOfHistoryAndAVoucherInEachState) {
  EXPECT_EQ(history("u", 0).size(), 10u);
  EXPECT_EQ(history("u", 1).size(), 10u);
  EXPECT_EQ(history("u", 2).size(), 6u);
  EXPECT_EQ(history("u", 3), json::array());
  std::vector<std::string> states;
  for (const auto& voucher : as("u", "/gifticons")) states.push_back(voucher["state"]);
  EXPECT_EQ(states, (std::vector<std::string>{"idle", "downloaded", "expired", "used", "canceled"}));
  for (const auto* page : {"", "-1", "x", "1.0", "9999999999"})
    EXPECT_EQ(ask(historyPath + page)->status, 400) << page;
  for (const auto* path : {"/my-rewards", "/gifticons", "/pointsystem/my-point"}) {
    EXPECT_EQ(client_->Get(onApp(path))->status, 400) << path << " without a user";
  }
}

TEST_F(WalletTest, AnIssuedVoucherHasThePictureOfItsBarcode) {
  const auto vouchers = as("u", "/gifticons");
  EXPECT_FALSE(vouchers[0].contains("image_url"));
  EXPECT_EQ(issue(vouchers[0]["id"], "stranger")->status, 404);
  const auto issued = json::parse(issue(vouchers[0]["id"])->body);
  ASSERT_EQ(issued.size(), vouchers.size());
  EXPECT_EQ(issued[0]["state"], "downloaded");
  EXPECT_NE(issued[0]["image_url"], issued[1]["image_url"]);
  EXPECT_EQ(json::parse(issue(vouchers[0]["id"])->body), issued) << "pressed twice";
  const auto url = issued[0]["image_url"].get<std::string>();
  const auto picture = client_->Get(url.substr(service_->baseUrl().size()));
  EXPECT_EQ(picture->get_header_value("Content-Type"), "image/png");
  for (std::size_t final = 2; final < 5; ++final) EXPECT_EQ(issue(vouchers[final]["id"])->status, 409);
  EXPECT_EQ(issue("0")->status, 404);
  EXPECT_EQ(issue(5)->status, 400);
  EXPECT_EQ(client_->Post(onApp("/gifticons/download"), {{"buid", "u"}}, "[", "application/json")->status,
            400);
  for (const auto* name : {"", "1", "12a4", "123456789012345678901234567890123456"}) {
    EXPECT_EQ(client_->Get("/barcodes/" + std::string(name) + ".png")->status, 404) << name;
  }
}

/// A scenario with a machine that takes a coin, and one that gives a voucher.
class OwnWalletTest : public WalletTest {
 protected:
  void SetUp() override {
    scenario_ = folder_.path();
    writeWallet({{"history", {{{"title", "welcome"}, {"date", "no date"}, {"point_amount", 100}}}}});
    WalletTest::SetUp();
  }
  void writeWallet(const json& wallet) { folder_.write("wallet.json", wallet.dump()); }
  void writeMachine(const json& gives) {
    folder_.write("campaigns/machine.json",
                  json{{"campaign", {{"id", "machine"}, {"page", {{"light", "off"}}}}},
                       {"states", {{"off", json::object()}, {"on", {{"/light", "on"}}}}},
                       {"first_state", "off"},
                       {"actions",
                        {{"press", {{"from", "off"}, {"to", "on"}, {"gives", gives}}},
                         {"release", {{"from", "on"}, {"to", "off"}}}}}}
                      .dump());
  }
  json press() { return as("u", "/campaigns/machine/press"); }
  TemporaryFolder folder_;
};

TEST_F(OwnWalletTest, AnActionTakesAllThatItTakesOrIsNotCarriedOut) {
  writeMachine({{"points", -60}, {"title", "a ride"}, {"description", "on the horse"}, {"tickets", 1}});
  EXPECT_EQ(press()["light"], "on");
  EXPECT_EQ(history("u", 0)[0], (json{{"id", 2},
                                      {"title", "a ride"},
                                      {"description", "on the horse"},
                                      {"date", "2026-05-01T12:00:00Z"},
                                      {"point_amount", -60}}));
  EXPECT_EQ(history("u", 0)[1]["date"], "no date") << "sent as it is, to test clients";
  as("u", "/campaigns/machine/release");
  const auto refused = ask("/campaigns/machine/press");
  EXPECT_EQ(json::parse(refused->body)["light"], "off") << "40 points are too few";
  EXPECT_EQ(refused->get_header_value("Orrelo-Note"), "the user has 40 points and cannot have -20");
  EXPECT_EQ(as("u", "/my-rewards"), (json{{"point", 40}, {"ticket", 1}, {"gifticon", 0}}));
  EXPECT_EQ(history("u", 0).size(), 2u);

  writeMachine({{"vouchers", -1}});
  EXPECT_EQ(press()["light"], "off") << "there is no voucher to redeem";
  for (const auto* state : {"idle", "used", "downloaded"}) {
    EXPECT_EQ(change({{"vouchers", {{{"title", state}, {"date", "2026-06-01T00:00:00Z"}, {"state", state}}}}})
                  ->status,
              200);
  }
  EXPECT_EQ(press()["light"], "on");
  const auto vouchers = as("u", "/gifticons");
  EXPECT_EQ(vouchers[0]["state"], "downloaded");
  EXPECT_EQ(vouchers[2]["state"], "used") << "the oldest that could be used";
}

TEST_F(OwnWalletTest, ManyClientsAtOnceGetItOnce) {
  writeMachine({{"points", 7}, {"title", "once"}});
  std::vector<std::jthread> threads;
  for (int number = 0; number < 8; ++number) {
    threads.emplace_back([this] {
      makeClient()->Get(onApp("/campaigns/machine/press"), httplib::Headers{{"buid", "u"}});
    });
  }
  threads.clear();
  EXPECT_EQ(as("u", "/my-rewards")["point"], 107);
}

TEST_F(OwnWalletTest, AMistakeInAFileIsTold) {
  const auto error = [&](const std::string& path) { return json::parse(ask(path)->body)["error"]; };
  writeMachine({{"points", 7}});
  EXPECT_EQ(error("/campaigns/machine"),
            "campaigns/machine.json: \"gives\" of the action \"press\": \"points\" needs a \"title\"");
  for (const json& wallet :
       {json::array(), json{{"page_size", 0}}, json{{"tickets", -1}}, json{{"ticket", 1}},
        json{{"history", {{{"title", "debt"}, {"date", "d"}, {"point_amount", -1}}}}},
        json{{"vouchers", {{{"title", "t"}, {"date", "d"}, {"state", "pending"}}}}}}) {
    writeWallet(wallet);
    EXPECT_EQ(ask("/my-rewards")->status, 500) << wallet;
  }
  EXPECT_EQ(error("/my-rewards"), "wallet.json: a voucher is idle, downloaded, expired, used or canceled");
  std::filesystem::remove(folder_.path() / "wallet.json");
  EXPECT_EQ(as("u", "/my-rewards")["point"], 0);
  EXPECT_EQ(ask("/fab")->status, 404);
  folder_.write("fab.json", "{{service}}{{app}}{{today+31}}{{{today-1}}{{today+x}}{{today");
  EXPECT_EQ(client_->Get(onApp("/fab", "a%22b"))->body,
            service_->baseUrl() + "a%22b2026-06-01{2026-04-30{{today+x}}{{today");
}

TEST_F(OwnWalletTest, TheAdminPathChangesAWalletWithinBounds) {
  const auto reply = change({{"points", -100}, {"title", "back to nothing"}, {"tickets", 1'000'000'000}});
  EXPECT_EQ(json::parse(reply->body)["points"], 0);
  EXPECT_EQ(json::parse(reply->body)["historySize"], 2);
  const auto users = getJson("/admin/state")["users"];
  ASSERT_EQ(users.size(), 1u) << "known by the wallet alone";
  EXPECT_EQ(users[0]["wallet"]["tickets"], 1'000'000'000);

  EXPECT_EQ(problemWith({{"points", -1}, {"title", "t"}}), "the user has 0 points and cannot have -1");
  EXPECT_EQ(problemWith({{"tickets", 1}}), "the user has 1000000000 tickets and cannot have 1000000001");
  EXPECT_EQ(problemWith({{"points", 1}}), "\"points\" needs a \"title\"");
  EXPECT_EQ(problemWith({{"title", "t"}}), "a \"title\" and a \"description\" need \"points\"");
  EXPECT_EQ(problemWith({{"vouchers", -1}}), "the user has 0 usable vouchers");
  EXPECT_EQ(problemWith({{"vouchers", {{{"title", "t"}}}}}), "a voucher needs a \"date\"");
  EXPECT_EQ(problemWith({{"point", 1}}), "a change has no \"point\"");
  for (const json& wanted :
       {json(), json::object(), json{{"points", 0}, {"title", "t"}}, json{{"points", 1.5}, {"title", "t"}},
        json{{"points", 18446744073709551615u}, {"title", "t"}}, json{{"tickets", "1"}},
        json{{"tickets", 1'000'000'001}}, json{{"points", 1}, {"title", std::string(501, 'x')}},
        json{{"vouchers", json::array()}}, json{{"vouchers", 1}},
        json{{"vouchers", json(1001, {{"title", "t"}, {"date", "d"}})}}}) {
    EXPECT_NE(problemWith(wanted), "no problem") << wanted;
  }
  EXPECT_EQ(client_->Post("/admin/wallet?app=app&user=u", "{", "application/json")->status, 400);
  EXPECT_EQ(client_->Get("/admin/wallet?app=app")->status, 400);
  EXPECT_EQ(client_->Delete("/admin/wallet?app=app&user=u")->status, 405);
  EXPECT_EQ(
      post("/admin/wallet?app=app&user=u", {{"tickets", -1}}, {{"Origin", "https://example.com"}})->status,
      403);
  EXPECT_EQ(getJson("/admin/wallet?app=app&user=u")["tickets"], 1'000'000'000)
      << "nothing of it was carried out";
}

TEST_F(OwnWalletTest, AWalletIsShownWithoutBeingMade) {
  EXPECT_EQ(getJson("/admin/wallet?app=app&user=u")["points"], 100) << "what the user would begin with";
  EXPECT_EQ(getJson("/admin/state")["users"], json::array());
  writeWallet({{"tickets", 3}});
  EXPECT_EQ(as("u", "/my-rewards")["ticket"], 3) << "begins with what the file says now";
}

TEST_F(OwnWalletTest, TheListHasTheUsersSeenLastAndThenTheWalletsThatChangedLast) {
  constexpr std::size_t listed = 200;
  as("first", "/my-rewards");
  as("zoe", "/my-rewards");
  for (std::size_t number = 0; number < listed; ++number) as("u" + std::to_string(number), "/my-rewards");
  post(onApp("/event"), event("E-1", "opened", {{"user_id", "zoe"}}));
  change({{"tickets", 5}}, "first");
  const auto users = getJson("/admin/state")["users"];
  ASSERT_EQ(users.size(), listed);
  EXPECT_EQ(users[0]["userId"], "zoe");
  EXPECT_EQ(users[0]["wallet"]["points"], 100);
  EXPECT_EQ(users[1]["userId"], "first");
  EXPECT_EQ(users[1]["wallet"]["tickets"], 5);
  EXPECT_EQ(users[2]["userId"], "u199");
}

TEST_F(OwnWalletTest, AVoucherByHandHasADateAndAsManyAreUsableAsFit) {
  const auto voucher = [](const char* date, const char* state = "idle") {
    return json{{"title", "t"}, {"date", date}, {"state", state}};
  };
  for (const auto* date : {"2026-12-31T23:59:59Z", "2028-02-29T00:00:00+09:00"})
    EXPECT_EQ(change({{"vouchers", {voucher(date)}}})->status, 200) << date;
  for (const auto* date : {"2026-12-31", "2026-02-29T00:00:00Z", "2026-12-31T24:00:00Z",
                           "2026-12-31T23:59:59", "2026-12-31 23:59:59Z", "tomorrow"}) {
    EXPECT_EQ(problemWith({{"vouchers", {voucher(date)}}}),
              "the \"date\" of a voucher must be like \"2026-12-31T23:59:59Z\"")
        << date;
  }
  EXPECT_EQ(as("u", "/gifticons").size(), 2u);

  const auto many = [&](std::size_t count, const char* state) {
    return change({{"vouchers", json(count, voucher("2026-12-31T23:59:59Z", state))}})->status;
  };
  EXPECT_EQ(many(1000, "used"), 200);
  EXPECT_EQ(many(999, "idle"), 400);
  EXPECT_EQ(many(998, "downloaded"), 200) << "used ones do not count";
  EXPECT_EQ(problemWith({{"vouchers", {voucher("2026-12-31T23:59:59Z")}}}),
            "a user has at most 1000 usable vouchers");
}

}  // namespace

}  // namespace orrelo::devservice
