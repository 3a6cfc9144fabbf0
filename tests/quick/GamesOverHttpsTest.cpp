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

  /// Strokes along the middle of the item, from its left end over this share of its width.
  void scratch(const QString& name, double share) {
    const auto* const item = named(name);
    ASSERT_NE(item, nullptr) << name.toStdString();
    const auto start = item->mapToScene({10, item->height() / 2}).toPoint();
    const QPoint end(start.x() + static_cast<int>(share * item->width()), start.y());
    QTest::mousePress(window_, Qt::LeftButton, {}, start);
    for (int x = start.x(); x <= end.x(); x += 4) QTest::mouseMove(window_, {x, start.y()});
    QTest::mouseRelease(window_, Qt::LeftButton, {}, end);
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

TEST_F(GamesOverHttpsTest, ACardRewardsOnceAndStaysOpen) {
  const auto card = QStringLiteral("스크래치 복권, 누르면 결과가 나옵니다");
  const auto opened = QStringLiteral("스크래치 복권, 결과: 커피 쿠폰 당첨!");
  showCampaign("scratch");
  ASSERT_TRUE(waitForNamed(card));
  settle();
  scratch(card, 0.2);
  settle();
  EXPECT_EQ(service_.requestCount("/scratch/scratched"), 0) << "too little is cleared";
  scratch(card, 0.9);
  ASSERT_TRUE(waitForNamed(QStringLiteral("당첨!")));
  EXPECT_EQ(service_.requestCount("/scratch/scratched"), 1);
  press(Qt::Key_Return);
  ASSERT_TRUE(waitFor([&] { return service_.requestCount("/campaigns/scratch") == 2; }));
  EXPECT_TRUE(waitFor([&] { return named(confirm) == nullptr && named(opened) != nullptr; }));
}

TEST_F(GamesOverHttpsTest, ALockedCardSaysWhyAndOpensOnceUnlocked) {
  const auto locked = QStringLiteral("스크래치 복권");
  showCampaign("scratch-locked");
  ASSERT_TRUE(waitForNamed(locked));
  settle();
  scratch(locked, 0.1);
  EXPECT_TRUE(waitForNamed(QStringLiteral("알림을 켜면 긁을 수 있어요")));
  EXPECT_GE(service_.requestCount("/scratch-locked/blocked"), 1);
  EXPECT_EQ(service_.requestCount("/scratch-locked/scratched"), 0);
  ASSERT_TRUE(waitForNamed(QStringLiteral("알림 켜기")));
  settle();
  click(QStringLiteral("알림 켜기"));
  EXPECT_TRUE(waitForNamed(QStringLiteral("스크래치 복권, 누르면 결과가 나옵니다")));
}

}  // namespace
}  // namespace orrelo::test
