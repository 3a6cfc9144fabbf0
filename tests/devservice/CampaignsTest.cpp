#include "ServiceFixture.h"

#include <algorithm>

namespace orrelo::devservice {

namespace {

class CampaignsTest : public ServiceFixture {
 protected:
  json as(const std::string& user, const std::string& path) {
    const auto result = client->Get(onApp(path), httplib::Headers{{"buid", user}});
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
  const bool wasListed = holds(before["attended_date"], today);

  const auto page = as("minji", before["button_url"].get<std::string>());
  const auto& after = page["page_detail"];
  EXPECT_TRUE(holds(after["attended_date"], today));
  EXPECT_EQ(after["button_enable"], false);
  EXPECT_TRUE(after.contains("reward_message"));
  EXPECT_FALSE(as("minji", "/campaigns/attendance/check-in")["page_detail"].contains("reward_message"));

  service.reset();
  startService();
  const auto later = detailOf(as("minji", "/campaigns/attendance"));
  EXPECT_TRUE(holds(later["attended_date"], today));
  EXPECT_FALSE(later.contains("reward_message"));
  EXPECT_EQ(holds(detailOf(as("jun", "/campaigns/attendance"))["attended_date"], today), wasListed);
}

TEST_F(CampaignsTest, ImagesAndWebPagesAreServedWhereThePagesSay) {
  const auto campaigns = as("minji", "/campaigns");
  ASSERT_GE(campaigns.size(), 2u);
  for (const auto& campaign : campaigns) {
    const auto url = campaign["icon"].get<std::string>();
    ASSERT_EQ(url.rfind(service->baseUrl(), 0), 0u) << url;
    const auto image = client->Get(url.substr(service->baseUrl().size()));
    EXPECT_EQ(image->status, 200);
    EXPECT_EQ(image->get_header_value("Content-Type"), "image/png");
  }
  EXPECT_EQ(client->Get("/images/..%2fconfig.json")->status, 404);
  const auto page = client->Get("/pages/festival.html");
  EXPECT_EQ(page->status, 200);
  EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
  EXPECT_EQ(client->Get("/pages/..%2fconfig.json")->status, 404);
  EXPECT_EQ(getJson("/lookup?bundleId=com.example.shop")["resultCount"], 0);
}

class OwnCampaignsTest : public CampaignsTest {
 protected:
  void SetUp() override {
    scenario = folder.path;
    ServiceFixture::SetUp();
  }
  TemporaryDirectory folder;
};

TEST_F(OwnCampaignsTest, EditsActAtOnceAndMistakesAreTold) {
  EXPECT_EQ(as("u", "/campaigns"), json::array());
  EXPECT_EQ(client->Get(onApp("/campaigns/1"))->status, 404);
  folder.write("campaigns/2.json", R"({"campaign":{"id":"2","page":{"page_type":"x","when":"{{today}}"}}})");
  folder.write("campaigns/1.json", R"({"campaign":{"id":"1"}})");
  const auto list = as("u", "/campaigns");
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0]["id"], "1");
  EXPECT_EQ(list[1]["page"]["when"].get<std::string>().size(), 10u);
  EXPECT_EQ(client->Get(onApp("/campaigns/2/check-in"), httplib::Headers{{"buid", "u"}})->status, 404);
  EXPECT_EQ(client->Get(onApp("/campaigns/2/check-in"))->status, 400);
  folder.write("apps/app/campaigns/3.json", R"({"campaign":{"id":"3"}})");
  EXPECT_EQ(as("u", "/campaigns").size(), 1u);
  folder.write("apps/app/campaigns/3.json", "{");
  EXPECT_EQ(client->Get(onApp("/campaigns"))->status, 500);
}

}  // namespace

}  // namespace orrelo::devservice
