#include "ServiceFixture.h"

namespace orrelo::devservice {

namespace {

class ScenarioTest : public ServiceFixture {
 protected:
  void SetUp() override {
    scenario_ = folder_.path();
    ServiceFixture::SetUp();
  }

  std::string config(const std::string& appKey) { return client_->Get(onApp("/config", appKey))->body; }

  TemporaryFolder folder_;
};

TEST_F(ScenarioTest, EditsActAtOnce) {
  EXPECT_EQ(client_->Get(onApp("/config"))->status, 404);
  folder_.write("config.json", "{ \"first\" : 1 }\n");
  EXPECT_EQ(config("app"), "{ \"first\" : 1 }\n");
  folder_.write("config.json", std::string("\xffnot JSON\0", 10));
  EXPECT_EQ(config("app"), std::string("\xffnot JSON\0", 10));
  EXPECT_EQ(client_->Get(onApp("/config"))->get_header_value("Content-Type"), "application/json");
}

TEST_F(ScenarioTest, AnAppMayHaveItsOwnFile) {
  folder_.write("config.json", "common");
  folder_.write("apps/my key/config.json", "own");
  EXPECT_EQ(config("app"), "common");
  EXPECT_EQ(config("my%20key"), "own");
  std::filesystem::remove_all(folder_.path() / "apps");
  EXPECT_EQ(config("my%20key"), "common");
}

TEST_F(ScenarioTest, AnAppKeyDoesNotLeadOutOfTheFolder) {
  folder_.write("config.json", "common");
  folder_.write("secret/config.json", "secret");
  std::filesystem::create_directories(folder_.path() / "apps/app");
  for (const auto* appKey : {"..", "..%5c", ".", "%2e%2e", "x%00"})
    EXPECT_EQ(config(appKey), "common") << appKey;
  EXPECT_EQ(client_->Get(onApp("/config", "..%2fsecret"))->status, 404);
}

}  // namespace

}  // namespace orrelo::devservice
