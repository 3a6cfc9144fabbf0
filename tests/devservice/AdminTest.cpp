#include "ServiceFixture.h"

namespace orrelo::devservice {

namespace {

class AdminTest : public ServiceFixture {
 protected:
  json state(const std::string& query = {}) { return getJson("/admin/state" + query); }
  httplib::Result order(const json& fault) { return post("/admin/faults", fault); }
};

TEST_F(AdminTest, StateTellsWhatChanged) {
  auto last = state();
  EXPECT_EQ(last["events"], json::array());
  post(onApp("/event"), event("E-1", "<script>", {{"user_id", "mina"}}));
  post(onApp("/event"), event("E-2"));

  last = state("?after=" + last["next"].dump());
  ASSERT_EQ(last["events"].size(), 2U);
  EXPECT_EQ(last["events"][0]["eventName"], "<script>");
  EXPECT_EQ(last["events"][0]["userId"], "mina");
  EXPECT_TRUE(last["events"][1]["userId"].is_null());
  EXPECT_EQ(last["users"][0]["userId"], "mina");

  post(onApp("/event"), event("E-1"));
  last = state("?after=" + last["next"].dump());
  ASSERT_EQ(last["events"].size(), 1U) << "a further delivery is a change";
  EXPECT_EQ(last["events"][0]["eventId"], "E-1");
  EXPECT_EQ(last["events"][0]["deliveries"], 2);
  EXPECT_EQ(last["counts"]["events"], 2);
  EXPECT_EQ(last["counts"]["deliveries"], 3);
  EXPECT_TRUE(state("?after=" + last["next"].dump())["events"].empty());
  EXPECT_EQ(client_->Get("/admin/state?after=x")->status, 400);
}

TEST_F(AdminTest, OrdersListsAndClearsFaults) {
  const auto ordered = order({{"kind", "status"}, {"path", "/config"}, {"status", 418}, {"count", 3}});
  EXPECT_EQ(ordered->status, 201);
  EXPECT_EQ(client_->Get(onApp("/config"))->status, 418);
  const auto listed = getJson("/admin/faults")["faults"];
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0]["remaining"], 2);
  EXPECT_EQ(listed[0]["applied"], 1);
  EXPECT_EQ(state()["faults"], listed);

  EXPECT_EQ(client_->Delete("/admin/faults/" + json::parse(ordered->body)["id"].dump())->status, 200);
  EXPECT_EQ(client_->Get(onApp("/config"))->status, 200);
  EXPECT_EQ(client_->Delete("/admin/faults/1")->status, 404);

  order({{"kind", "drop"}});
  EXPECT_EQ(client_->Get("/admin/faults")->status, 200)
      << "a fault for every path leaves the admin paths alone";
  EXPECT_EQ(client_->Delete("/admin/faults")->status, 200);
  EXPECT_TRUE(service_->faults().empty());
}

TEST_F(AdminTest, RefusesFaultsThatCannotBe) {
  for (const json& fault :
       {json::array(), json{{"kind", "explode"}}, json{{"kind", "status"}, {"statsu", 500}},
        json{{"kind", "status"}, {"status", 99}}, json{{"kind", "drop"}, {"count", 0}},
        json{{"kind", "redirect"}}, json{{"kind", "redirect"}, {"location", "x\r\ny: z"}},
        json{{"kind", "body"}, {"body", std::string(1000, 'x')}, {"repeat", 1000000}}}) {
    EXPECT_EQ(order(fault)->status, 400) << fault;
  }
  EXPECT_EQ(client_->Post("/admin/faults", "{", "application/json")->status, 400);
  EXPECT_TRUE(service_->faults().empty());
}

TEST_F(AdminTest, ANotificationWaitsForItsUserAndIsHandedOutOnce) {
  const auto pathOf = [](const std::string& user) { return "/admin/notifications?app=app&user=" + user; };
  const auto put = [&](const std::string& payload, const std::string& user = "mina") {
    return client_->Post(pathOf(user), payload, "application/json");
  };
  const auto take = [&](const std::string& user) {
    const auto reply = client_->Delete(pathOf(user));
    return reply->status == 200 ? json::parse(reply->body) : json();
  };
  post(onApp("/event"), event("E-1", "opened", {{"user_id", "mina"}}));
  EXPECT_EQ(put(R"({"Orrelo":1,"campaignId":"wheel"})")->status, 201);
  EXPECT_EQ(put(" {\"deeplink\":\"shop://ü\"}\n")->body, R"({"waiting":2})");
  put(R"({"for":"joon"})", "joon");
  service_.reset();
  startService();
  EXPECT_EQ(state()["users"][0]["notifications"], 2);
  EXPECT_EQ(take("mina"), (json{{{"Orrelo", 1}, {"campaignId", "wheel"}}, {{"deeplink", "shop://ü"}}}));
  EXPECT_EQ(take("mina"), json::array());
  EXPECT_EQ(take("joon").size(), 1u);
  EXPECT_EQ(state()["users"][0]["notifications"], 0);

  const auto nested = R"({"a":)" + std::string(10'000, '[') + std::string(10'000, ']') + "}";
  EXPECT_EQ(put(nested)->status, 201) << "to test hosts with";
  EXPECT_EQ(client_->Delete(pathOf("mina"))->body, "[" + nested + "]");
  for (const auto& payload :
       {std::string("{"), std::string("[]"), std::string(" "), std::string("{\"a\":\"\xff\"}"),
        R"({"a":")" + std::string(64 << 10, 'x') + R"("})"}) {
    EXPECT_EQ(put(payload)->status, 400) << payload.substr(0, 20);
  }
  for (int number = 0; number < 100; ++number) put("{}");
  EXPECT_EQ(put("{}")->status, 409);
  EXPECT_EQ(client_->Delete(pathOf("mina"), httplib::Headers{{"Origin", "https://example.com"}})->status,
            403);
  EXPECT_EQ(take("mina").size(), 100u);
  EXPECT_EQ(client_->Get(pathOf("mina"))->status, 405);
  EXPECT_EQ(client_->Delete("/admin/notifications?user=mina")->status, 400);
}

TEST_F(AdminTest, AnotherSitesPageCannotOrderFaults) {
  const auto body = json{{"kind", "drop"}};
  EXPECT_EQ(post("/admin/faults", body, {{"Origin", "https://example.com"}})->status, 403);
  EXPECT_EQ(post("/admin/faults", body, {{"Origin", service_->baseUrl()}})->status, 201);
}

}  // namespace

}  // namespace orrelo::devservice
