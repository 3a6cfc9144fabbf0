#include "DevService.h"
#include "QuickTest.h"

namespace orrelo::test {
namespace {

using devservice::DevService;

const QString confirm = QStringLiteral("확인");

/// The local service's bundled scenario over HTTPS, up to the screen.
class GamesOverHttpsTest : public WindowTest {
 protected:
  GamesOverHttpsTest() {
    service_.start();
    Platform::install(quick::platform({.bundleIdentifier = "com.example.shop",
                                       .dataDirectory = folder_.path() / "device",
                                       .cacheDirectory = folder_.path() / "cache"}));
    const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
    suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
    suite->set("ORRELO_DEVELOPMENT_URL", service_.baseUrl());
    suite->set("ORRELO_DEVELOPMENT_CA", service_.certificatePath().string());
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
    open({390, 844});
  }

  DevService service_{{.dataDirectory = folder_.path() / "service"}};
};

TEST_F(GamesOverHttpsTest, AWheelSpinsRewardsAndIsDoneForTheDay) {
  const auto spin = QStringLiteral("룰렛 돌리기");
  const auto reward = QStringLiteral("축하합니다!");
  const auto spun = QStringLiteral("내일 다시 돌려 보세요");
  showCampaign("roulette");
  ASSERT_TRUE(waitForNamed(spin));
  settle();
  click(spin);
  ASSERT_TRUE(waitFor([&] { return service_.requestCount("/roulette/spin") == 1; }));
  EXPECT_EQ(service_.requestCount("/roulette/stop"), 0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return named(reward) != nullptr; }, 10'000));
  EXPECT_EQ(service_.requestCount("/roulette/stop"), 1);
  EXPECT_NE(named(spun), nullptr) << "the page is beneath the reward";
  click(confirm);
  ASSERT_TRUE(waitFor([&] { return service_.requestCount("/campaigns/roulette") == 2; }));
  EXPECT_TRUE(waitFor([&] { return named(reward) == nullptr && named(spun) != nullptr; }));
  EXPECT_TRUE(waitFor([&] { return !names().filter(QStringLiteral("결과: 포인트 1000P")).isEmpty(); }));
  click(spun);
  settle();
  EXPECT_EQ(service_.requestCount("/roulette/spin"), 1);

  open({390, 844});
  showCampaign("roulette");
  EXPECT_TRUE(waitForNamed(spun)) << "the service remembers";
  EXPECT_EQ(named(reward), nullptr);
}

}  // namespace
}  // namespace orrelo::test
