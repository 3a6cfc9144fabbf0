#include "ServiceFixture.h"

#include <thread>

namespace orrelo::devservice {

namespace {

using EventIntakeTest = ServiceFixture;

TEST_F(EventIntakeTest, KeepsWhatCameWithAnEvent) {
  const auto sent = event("E-1", "purchase", {{"user_id", "mina"}, {"price", "24.5"}, {"note", "ü\"\n"}});
  const auto reply = post(onApp("/event", "key-1"), sent,
                          {{"Kelso-UUID", "K"}, {"locale", "50%25 en"}, {"app_name", ""}, {"X-Other", "no"}});
  ASSERT_TRUE(reply);
  EXPECT_EQ(reply->status, 200);

  const auto events = service_->events();
  ASSERT_EQ(events.size(), 1U);
  const auto& stored = events.front();
  EXPECT_EQ(stored.eventId, "E-1");
  EXPECT_EQ(stored.appKey, "key-1");
  EXPECT_EQ(stored.userId, "mina");
  EXPECT_EQ(stored.eventName, "purchase");
  EXPECT_EQ(stored.eventTime, "2026-05-04T03:02:01");
  EXPECT_EQ(stored.path, "/event");
  EXPECT_EQ(stored.deliveries, 1);
  EXPECT_EQ(stored.values, (sent.get<std::map<std::string, std::string>>()));
  const std::map<std::string, std::string> headers{
      {"Kelso-UUID", "K"}, {"locale", "50%25 en"}, {"app_name", ""}};
  EXPECT_EQ(stored.headers, headers) << "as sent, empty ones too, and no others";
}

TEST_F(EventIntakeTest, CountsDeliveriesOfTheSameEvent) {
  post(onApp("/event"), event("E-1"));
  post(onApp("/events"), json::array({event("E-2"), event("E-1", "changed"), event("E-2")}));

  const auto events = service_->events();
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].deliveries, 2);
  EXPECT_EQ(events[0].eventName, "opened") << "the first delivery is kept";
  EXPECT_EQ(events[0].path, "/event");
  EXPECT_GE(events[0].lastArrival, events[0].firstArrival);
  EXPECT_EQ(events[1].deliveries, 2);
  EXPECT_FALSE(events[1].userId);
  EXPECT_EQ(service_->eventCount(), 2);
  EXPECT_EQ(service_->deliveryCount(), 4);
}

TEST_F(EventIntakeTest, StoresABatchWholeOrNotAtAll) {
  const auto reply = post(onApp("/events"), json::array({event("E-1"), {{"event_id", "E-2"}}}));
  EXPECT_EQ(reply->status, 400);
  EXPECT_EQ(json::parse(reply->body)["error"], "event 1: \"event_name\" is missing");
  EXPECT_EQ(service_->eventCount(), 0);

  auto many = json::array();
  for (int i = 0; i < 900; ++i) many.push_back(event("B-" + std::to_string(i)));
  EXPECT_EQ(post(onApp("/events"), many)->status, 200);
  EXPECT_EQ(post(onApp("/events"), json::array())->status, 200);
  EXPECT_EQ(service_->eventCount(), 900);
}

TEST_F(EventIntakeTest, RefusesBadBodies) {
  const auto status = [&](const std::string& path, const std::string& body) {
    const auto result = client_->Post(onApp(path), body, "application/json");
    return result && json::accept(result->body) ? result->status : 0;
  };
  for (const auto* body : {"", "[]", R"({"event_id":"1","event_name":"n"})", "\xff\xfe",
                           R"({"event_id":"1","event_name":"n","event_time":"t","count":1})",
                           R"({"event_id":"","event_name":"n","event_time":"t"})"}) {
    EXPECT_EQ(status("/event", body), 400) << body;
  }
  EXPECT_EQ(status("/events", event("1").dump()), 400);
  for (const auto& token :
       {json(), json{{"token", "t"}}, json{{"buid", "u"}}, json{{"token", ""}, {"buid", "u"}},
        json{{"token", 5}, {"buid", "u"}}, json{{"token", std::string(1 << 20, 't')}, {"buid", "u"}},
        json{{"token", "t"}, {"buid", std::string(4097, 'u')}}}) {
    EXPECT_EQ(status("/token", token.dump()), 400) << token.dump().substr(0, 40);
  }
  EXPECT_EQ(service_->eventCount(), 0);
  EXPECT_TRUE(service_->tokens().empty());
}

TEST_F(EventIntakeTest, RefusesDeepAndLargeBodies) {
  const auto status = [&](const std::string& body) {
    const auto result = makeClient()->Post(onApp("/events"), body, "application/json");
    return result ? result->status : 0;
  };
  EXPECT_EQ(status(std::string(2 << 20, '[')), 400);
  const int tooLarge = status(std::string(17 << 20, ' '));
  EXPECT_TRUE(tooLarge == 413 || tooLarge == 0) << tooLarge << ": refused, or cut off while sending";
  EXPECT_EQ(makeClient()->Get(onApp("/config"))->status, 200);
}

TEST_F(EventIntakeTest, KnowsUsersAndTheirTokens) {
  post(onApp("/event"), event("E-1", "opened", {{"user_id", "mina"}}));
  post(onApp("/event"), event("E-1", "opened", {{"user_id", "mina"}}));
  EXPECT_EQ(post(onApp("/token"), {{"token", "T"}, {"buid", "mina"}}, {{"buid", "mina"}})->status, 200);
  post(onApp("/token"), {{"token", "T"}, {"buid", "mina"}});
  post(onApp("/token"), {{"token", "T"}, {"buid", "joon"}});

  auto users = service_->users();
  std::ranges::sort(users, {}, &KnownUser::userId);
  ASSERT_EQ(users.size(), 2U);
  EXPECT_EQ(users[0].userId, "joon");
  EXPECT_EQ(users[0].events, 0);
  EXPECT_EQ(users[1].events, 1) << "a repeated delivery is no second event";

  auto tokens = service_->tokens();
  std::ranges::sort(tokens, {}, &SavedToken::userId);
  ASSERT_EQ(tokens.size(), 2U);
  EXPECT_EQ(tokens[1].token, "T");
  EXPECT_EQ(tokens[1].saves, 2);
}

TEST_F(EventIntakeTest, KeepsTheTokensThatAUserSavedLast) {
  const auto save = [&](int number) {
    return post(onApp("/token"),
                {{"token", std::string(4000, 'T') + std::to_string(number)}, {"buid", "mina"}})
        ->status;
  };
  for (int number = 0; number < 25; ++number) EXPECT_EQ(save(number), 200);
  service_.reset();
  startService();
  const auto tokens = service_->tokens();
  ASSERT_EQ(tokens.size(), 20U);
  EXPECT_EQ(tokens.front().token.substr(4000), "24");
  const auto listed = getJson("/admin/state")["users"][0]["tokens"];
  EXPECT_EQ(listed["count"], 20);
  ASSERT_EQ(listed["latest"].size(), 3u);
  // The bytes 255 to 257 are one character.
  const auto text = std::string(254, '8') + "가";
  EXPECT_EQ(post(onApp("/token"), {{"token", text + text}, {"buid", "mina"}})->status, 200);
  EXPECT_EQ(getJson("/admin/state")["users"][0]["tokens"]["latest"][0]["token"], std::string(254, '8') + "…");
}

TEST_F(EventIntakeTest, TakesManyClientsAtOnce) {
  constexpr int clients = 8;
  constexpr int each = 25;
  std::vector<std::jthread> threads;
  threads.reserve(clients);
  for (int number = 0; number < clients; ++number) {
    threads.emplace_back([this, number] {
      const auto own = makeClient();
      // Two clients at a time send the same events.
      for (int i = 0; i < each; ++i) {
        const auto id = std::to_string(number / 2) + "-" + std::to_string(i);
        own->Post(onApp("/event"), event(id).dump(), "application/json");
      }
    });
  }
  threads.clear();
  EXPECT_EQ(service_->eventCount(), clients * each / 2);
  EXPECT_EQ(service_->deliveryCount(), clients * each);
}

}  // namespace

}  // namespace orrelo::devservice
