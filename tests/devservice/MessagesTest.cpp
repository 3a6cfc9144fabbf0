#include "ServiceFixture.h"

namespace orrelo::devservice {

namespace {

class MessagesTest : public ServiceFixture {
 protected:
  httplib::Result ask() {
    return client_->Get(onApp("/in-app-message/banner"), httplib::Headers{{"buid", "minji"}});
  }
  json messages() { return json::parse(ask()->body); }
};

TEST_F(MessagesTest, EachOfTheBundledScenarioHasAPictureAndLeadsToACampaign) {
  const auto reply = messages();
  EXPECT_TRUE(reply["type"].is_string());
  ASSERT_EQ(reply["items"].size(), 3u);
  for (const auto& item : reply["items"]) {
    const auto url = item["image_url"].get<std::string>();
    ASSERT_TRUE(url.starts_with(service_->baseUrl())) << url;
    EXPECT_EQ(client_->Get(url.substr(service_->baseUrl().size()))->get_header_value("Content-Type"),
              "image/png");
    EXPECT_EQ(client_->Get(onApp("/campaigns/" + item["campaign_id"].get<std::string>()))->status, 200);
  }
  EXPECT_EQ(client_->Get(onApp("/in-app-message/banner"))->status, 400) << "without a user";
}

class OwnMessagesTest : public MessagesTest {
 protected:
  void SetUp() override {
    scenario_ = folder_.path();
    folder_.write("campaigns/wheel.json", R"({"campaign":{"id":"wheel"}})");
    MessagesTest::SetUp();
  }
  TemporaryFolder folder_;
};

TEST_F(OwnMessagesTest, AMistakeInTheFileIsToldAndWithoutTheFileThereAreNone) {
  EXPECT_EQ(messages(), (json{{"type", "banner"}, {"items", json::array()}}));
  const std::vector<std::pair<const char*, const char*>> mistakes{
      {"[", "the file is no object"},
      {R"({"type":"t"})", "\"items\" must be a list of at most 100"},
      {R"({"items":[]})", "\"type\" is missing in the file"},
      {R"({"type":"t","items":[7]})", "item 0 is no object"},
      {R"({"type":"t","items":[{"campaign_id":"wheel","image_url":5}]})",
       "\"image_url\" is missing in item 0"},
      {R"({"type":"t","items":[{"campaign_id":"wheel","image_url":"u"},{"campaign_id":"gone","image_url":"u"}]})",
       "there is no campaign \"gone\" for item 1 to lead to"},
  };
  for (const auto& [text, problem] : mistakes) {
    folder_.write("messages.json", text);
    const auto reply = ask();
    EXPECT_EQ(reply->status, 500) << text;
    EXPECT_EQ(json::parse(reply->body)["error"], std::string("messages.json: ") + problem);
  }
  folder_.write(
      "messages.json",
      R"({"type":"t","items":[{"campaign_id":"wheel","image_url":"{{service}}/images/{{today}}"}]})");
  EXPECT_TRUE(messages()["items"][0]["image_url"].get<std::string>().starts_with(service_->baseUrl()));
  folder_.write("apps/app/messages.json", R"({"type":"own","items":[]})");
  EXPECT_EQ(messages()["type"], "own");
}

}  // namespace

}  // namespace orrelo::devservice
