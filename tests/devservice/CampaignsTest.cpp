#include "ServiceFixture.h"

#include <algorithm>

namespace orrelo::devservice {

namespace {

class CampaignsTest : public ServiceFixture {
 protected:
  json as(const std::string& user, const std::string& path) {
    const auto result = client_->Get(onApp(path), httplib::Headers{{"buid", user}});
    return result && result->status == 200 ? json::parse(result->body) : json();
  }
  static json detailOf(const json& campaign) { return campaign["page"]["page_detail"]; }
  static bool holds(const json& list, const json& element) {
    return std::find(list.begin(), list.end(), element) != list.end();
  }
};

TEST_F(CampaignsTest, ACheckInChangesThePageOfThatUserForGood) {
  const auto before = detailOf(as("minji", "/campaigns/attendance"));
  const auto today = before["today"];
  EXPECT_EQ(before["button_text"], "오늘 출석하기");
  EXPECT_FALSE(holds(before["attended_date"], today));

  const auto page = as("minji", before["button_url"].get<std::string>());
  const auto& after = page["page_detail"];
  EXPECT_TRUE(holds(after["attended_date"], today));
  EXPECT_EQ(after["attended_date"].size(), before["attended_date"].size() + 1);
  EXPECT_EQ(after["button_enable"], false);
  EXPECT_TRUE(after.contains("reward_message"));
  EXPECT_FALSE(as("minji", "/campaigns/attendance/check-in")["page_detail"].contains("reward_message"));

  service_.reset();
  startService();
  const auto later = detailOf(as("minji", "/campaigns/attendance"));
  EXPECT_TRUE(holds(later["attended_date"], today));
  EXPECT_FALSE(later.contains("reward_message"));
  EXPECT_EQ(detailOf(as("jun", "/campaigns/attendance")), before);
}

TEST_F(CampaignsTest, ImagesAndWebPagesAreServedWhereThePagesSay) {
  const auto campaigns = as("minji", "/campaigns");
  ASSERT_GE(campaigns.size(), 2u);
  for (const auto& campaign : campaigns) {
    const auto url = campaign["icon"].get<std::string>();
    ASSERT_EQ(url.rfind(service_->baseUrl(), 0), 0u) << url;
    const auto image = client_->Get(url.substr(service_->baseUrl().size()));
    EXPECT_EQ(image->status, 200);
    EXPECT_EQ(image->get_header_value("Content-Type"), "image/" + url.substr(url.size() - 3));
  }
  EXPECT_EQ(client_->Get("/images/..%2fconfig.json")->status, 404);
  const auto page = client_->Get("/pages/festival.html");
  EXPECT_EQ(page->status, 200);
  EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
  EXPECT_EQ(client_->Get("/pages/..%2fconfig.json")->status, 404);
  EXPECT_EQ(getJson("/lookup?bundleId=com.example.shop")["resultCount"], 0);
}

class OwnCampaignsTest : public CampaignsTest {
 protected:
  void SetUp() override {
    scenario_ = folder_.path();
    now_ = std::chrono::sys_days(std::chrono::May / 1 / 2026) + std::chrono::hours(12);
    ServiceFixture::SetUp();
  }
  TemporaryFolder folder_;
};

TEST_F(OwnCampaignsTest, EditsActAtOnceAndMistakesAreTold) {
  EXPECT_EQ(as("u", "/campaigns"), json::array());
  EXPECT_EQ(client_->Get(onApp("/campaigns/1"))->status, 404);
  folder_.write("campaigns/2.json",
                R"({"campaign":{"id":"2","page":{"page_type":"x","when":"{{today-1}} {{month}}"}}})");
  folder_.write("campaigns/1.json", R"({"campaign":{"id":"1"}})");
  const auto list = as("u", "/campaigns");
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0]["id"], "1");
  EXPECT_EQ(list[1]["page"]["when"], "2026-04-30 2026-05");
  folder_.write("apps/app/campaigns/3.json", R"({"campaign":{"id":"3"}})");
  EXPECT_EQ(as("u", "/campaigns").size(), 1u);
  folder_.write("apps/app/campaigns/3.json", "{");
  EXPECT_EQ(client_->Get(onApp("/campaigns"))->status, 500);
}

/// One campaign, a box whose states are closed, open and empty.
class ParticipationTest : public OwnCampaignsTest {
 protected:
  void SetUp() override {
    write();
    OwnCampaignsTest::SetUp();
  }
  void write() {
    folder_.write("campaigns/box.json",
                  R"({"campaign":{"id":"any","page":{"lid":"closed","days":["{{days of open}}"],
          "items":[{"left":1}]}},
        "states":{"closed":{},"open":{"/lid":"open"},"empty":{"/lid":"open","/items/0/left":0}},
        "first_state":"closed",
        "actions":{"open":{"from":"closed","to":"open"},
          "take":{"from":"open","to":"empty","reply":{"/reward":"a prize"}}}})");
  }
  int status(const std::string& path) {
    return client_->Get(onApp(path), httplib::Headers{{"buid", "u"}})->status;
  }
  json page(const std::string& user) { return as(user, "/campaigns/box")["page"]; }
};

TEST_F(ParticipationTest, LeadsEachUserFromStateToStateAndOutlivesTheService) {
  EXPECT_EQ(page("minji")["lid"], "closed");
  EXPECT_EQ(as("minji", "/campaigns/box/open")["lid"], "open");
  service_.reset();
  startService();
  const auto taken = as("minji", "/campaigns/box/take");
  EXPECT_EQ(taken["items"][0]["left"], 0);
  EXPECT_EQ(taken["reward"], "a prize");
  EXPECT_FALSE(page("minji").contains("reward")) << "a reply's own value is not stored";
  EXPECT_EQ(page("minji")["items"][0]["left"], 0);
  EXPECT_EQ(page("jun")["lid"], "closed");
  const auto other = client_->Get(onApp("/campaigns/box", "other"), httplib::Headers{{"buid", "minji"}});
  EXPECT_EQ(json::parse(other->body)["page"]["lid"], "closed");
}

TEST_F(ParticipationTest, AnActionThatDoesNotApplyChangesNothing) {
  EXPECT_EQ(as("u", "/campaigns/box/take")["lid"], "closed") << "it is not open yet";
  as("u", "/campaigns/box/open");
  as("u", "/campaigns/box/take");
  EXPECT_FALSE(as("u", "/campaigns/box/take").contains("reward")) << "the second time";
  EXPECT_EQ(as("u", "/campaigns/box/open")["items"][0]["left"], 0) << "no way back";
  EXPECT_EQ(page("u")["days"].size(), 1u);
  EXPECT_EQ(status("/campaigns/box/burn"), 404);
  EXPECT_EQ(status("/campaigns/bag/open"), 404);
  EXPECT_EQ(status("/campaigns/box/open/wide"), 404);
  EXPECT_EQ(client_->Get(onApp("/campaigns/box/open"))->status, 400) << "without a user";
}

}  // namespace

}  // namespace orrelo::devservice
