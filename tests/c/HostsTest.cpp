#include "DevService.h"
#include "support/Program.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace orrelo::test {
namespace {

using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Pair;

/// Hosts in other languages against the local service over HTTPS.
class HostsTest : public testing::Test {
 protected:
  HostsTest() {
    service_.start();
    mkfifo(end_.c_str(), 0600);
  }

  /// Runs the host until the service has its events and its token, and then lets it end.
  void run(std::vector<std::string> command, const std::string& token) {
    command.insert(command.end(), {service_.baseUrl(), service_.certificatePath().string(),
                                   (folder_.path() / "device").string(), end_.string()});
    Program host(command);
    const auto isThere = [](const char* name) {
      return [name](const auto& events) {
        return std::any_of(events.begin(), events.end(),
                           [&](const auto& event) { return event.eventName == name; });
      };
    };
    ASSERT_TRUE(service_.waitForEvents(isThere("purchase"), std::chrono::seconds(30))) << stopped(host);
    ASSERT_TRUE(service_.waitForRequests("/token", 1, std::chrono::seconds(30))) << stopped(host);
    std::ofstream(end_).put('\n');
    output_ = host.output();
    EXPECT_EQ(host.wait(), 0) << output_;
    service_.stop();  // by then the token that has arrived is stored
    ASSERT_EQ(service_.tokens().size(), 1U);
    EXPECT_EQ(service_.tokens()[0].token, token);
  }

  bool awaitPurchase() const {
    return service_.waitForEvents(
        [](const auto& events) {
          return std::any_of(events.begin(), events.end(),
                             [](const auto& event) { return event.eventName == "purchase"; });
        },
        std::chrono::seconds(30));
  }
  static std::string stopped(Program& host) {
    host.end();
    return host.output();
  }
  /// The values of the event with this name.
  auto values(const std::string& name) const {
    for (const auto& event : service_.events()) {
      if (event.eventName == name) return event.values;
    }
    throw std::runtime_error(name + " has not arrived");
  }

  TemporaryFolder folder_;
  devservice::DevService service_{{.dataDirectory = folder_.path() / "service"}};
  std::string output_;

 private:
  const std::filesystem::path end_ = folder_.path() / "end";
};

TEST_F(HostsTest, InC) {
  run({ORRELO_C_HOST}, "token of C");
  EXPECT_THAT(output_, HasSubstr("refused: Null is not supported class"));
  EXPECT_THAT(output_, HasSubstr("flushed: 1"));
  EXPECT_THAT(output_, HasSubstr("done with "));
  EXPECT_THAT(values("purchase"), IsSupersetOf({Pair("user_id", "minji"), Pair("item", "blue \uFFFD shoes"),
                                                Pair("gift", "true"), Pair("sizes", "[41,42.5]")}));
  EXPECT_THAT(values("ol_set_user_profile"),
              IsSupersetOf({Pair("level", "3"), Pair("opt_in_marketing", "true")}));
}

TEST_F(HostsTest, OfTheDocumentation) {
  const auto folder = (folder_.path() / "home").string();
  Program host({"env", "XDG_DATA_HOME=" + folder, "XDG_CACHE_HOME=" + folder, ORRELO_DOCUMENT_HOST,
                service_.baseUrl(), service_.certificatePath().string()});
  ASSERT_TRUE(awaitPurchase()) << stopped(host);
  EXPECT_EQ(stopped(host), "");
  EXPECT_THAT(values("purchase"), IsSupersetOf({Pair("item", "blue shoes"), Pair("price", "39.9")}));
}

#ifdef ORRELO_PYTHON
TEST_F(HostsTest, InPython) {
  run({ORRELO_PYTHON, ORRELO_PYTHON_HOST, ORRELO_LIBRARY}, "token of Python");
  EXPECT_THAT(output_, HasSubstr("refused: unsupported event value: Null is not supported class"));
  EXPECT_THAT(output_, HasSubstr("done"));
  EXPECT_THAT(values("purchase"),
              IsSupersetOf({Pair("user_id", "민지"), Pair("item", "blue shoes"), Pair("price", "39.9"),
                            Pair("count", "2"), Pair("gift", "true")}));
}
#endif

}  // namespace
}  // namespace orrelo::test
