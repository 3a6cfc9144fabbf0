#include "ConsoleProcess.h"
#include "DevService.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <gmock/gmock.h>
#include <stdexcept>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

/// The console host against the local service over HTTPS.
class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() { service_.start(); }

  std::vector<std::string> options(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> all{"--data",        (folder_.path() / "device").string(),
                                 "--service",     service_.baseUrl(),
                                 "--certificate", service_.certificatePath().string()};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  std::string file(const std::string& name, const std::string& content) const {
    const auto path = (folder_.path() / name).string();
    std::ofstream(path) << content;
    return path;
  }
  /// Sends a command and keeps its answer: a line of the kit's log may come before or after the command's
  /// end.
  void send(console::ConsoleProcess& console, const std::string& line) {
    const auto answer = console.command(line);
    lines_.insert(lines_.end(), answer.begin(), answer.end());
  }
  /// Sends commands until the kit's log has had a line with this end.
  bool awaitLine(console::ConsoleProcess& console, const std::string& end) {
    const auto isThere = [&] {
      return std::any_of(lines_.begin(), lines_.end(), [&](const auto& line) { return line.ends_with(end); });
    };
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isThere() && std::chrono::steady_clock::now() < deadline) send(console, "user");
    return isThere();
  }

  std::vector<std::string> lines_;
  TemporaryFolder folder_;
  devservice::DevService service_{{.dataDirectory = folder_.path() / "service"}};
};

TEST_F(ConsoleTest, TokensReachTheServiceUnderTheirUsers) {
  console::ConsoleProcess console(options());
  send(console, "log");
  send(console, "token a b \"c\"");
  send(console, "signin minji");
  ASSERT_TRUE(awaitLine(console, "token:PushToken(rawValue: a b \"c\"), userId:minji"));
  send(console, "devicetoken 000fA5");
  ASSERT_TRUE(awaitLine(console, "token:PushToken(rawValue: 000fa5), userId:minji"));
  send(console, "signin hana");
  ASSERT_TRUE(awaitLine(console, "token:PushToken(rawValue: 000fa5), userId:hana"));
  std::vector<std::string> saved;
  for (const auto& token : service_.tokens()) saved.push_back(token.userId + " " + token.token);
  EXPECT_THAT(saved, testing::UnorderedElementsAre("minji a b \"c\"", "minji 000fa5", "hana 000fa5"));
  send(console, "token ");  // the service refuses an empty token
  EXPECT_TRUE(awaitLine(console, "Token save failure: NetworkError.invalidHttpStatusCode"));
  for (const auto* const bad :
       {"devicetoken 0", "devicetoken xy", "notify", "notify [1]", "notify /none.json"}) {
    EXPECT_THROW(console.command(bad), std::runtime_error) << bad;
  }
}

TEST_F(ConsoleTest, NotificationsAreTheKitsOrTheHosts) {
  const auto handled = "the kit has handled it";
  const auto left = "not the kit's: left to this host";
  const auto foreign = file("foreign.json", R"({"aps":{"alert":"안녕"},"campaignId":"stamp"})");
  console::ConsoleProcess console(options({"--notification", foreign}));
  EXPECT_THAT(console.command("notify " + file("tap.json", R"({"Orrelo":null,"campaignId":"stamp"})")),
              ElementsAre(left, handled));
  EXPECT_THAT(console.command(R"(arrive {"Orrelo": {"a": [1, -2.5, true, "\"}"]}})"), ElementsAre(handled));
  EXPECT_THAT(console.command("arrive " + foreign), ElementsAre(left));
  EXPECT_THAT(console.command("notify {\"a\":" + std::string(300, '[') + std::string(300, ']') + "}"),
              ElementsAre(left));
}

}  // namespace
}  // namespace orrelo::test
