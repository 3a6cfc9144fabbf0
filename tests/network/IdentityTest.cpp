#include "network/HttpHeaderGenerator.h"
#include "network/KelsoMutator.h"
#include "network/NetworkConfig.h"
#include "platform/store/SqliteUserDefaults.h"
#include "support/TemporaryFolder.h"
#include "support/TestPlatform.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <set>
#include <string>

namespace orrelo::test {
namespace {

constexpr auto deviceIdKey = "orl_user_default_key_kelso_uuid";

TEST(KelsoMutatorTest, AStoredNumberChoosesTheService) {
  const auto suite = std::make_shared<MemoryDefaults>();
  const auto url = [&suite] { return KelsoMutator(suite).serviceUrl(); };
  const auto production = url();
  EXPECT_EQ(KelsoMutator(nullptr).serviceUrl(), production);
  EXPECT_EQ(KelsoMutator(nullptr).environment(), "production");
  EXPECT_EQ(KelsoMutator(nullptr, {.url = "https://localhost:1"}).environment(), "development");
  for (const std::int64_t selector : {0, -1, 4, 7}) {
    suite->set("ORRELO_SERVICE_URL", selector);
    EXPECT_EQ(url(), production) << selector;
  }
  suite->set("ORRELO_SERVICE_URL", std::string("1"));
  EXPECT_EQ(url(), production);
  std::set<std::string> urls{production};
  for (const std::int64_t selector : {1, 2, 3}) {
    suite->set("ORRELO_SERVICE_URL", selector);
    EXPECT_TRUE(urls.insert(url()).second);
  }
  for (const auto& each : urls) EXPECT_THAT(each, testing::StartsWith("https://"));
}

TEST(KelsoMutatorTest, OnlyDevelopmentHasAHostAndACertificateOfItsOwn) {
  const auto suite = std::make_shared<MemoryDefaults>();
  const KelsoMutator mutator(suite);
  suite->set("ORRELO_DEVELOPMENT_URL", std::string("https://localhost:1234"));
  suite->set("ORRELO_DEVELOPMENT_CA", std::string("/ca.pem"));
  for (const std::int64_t selector : {0, 1, 2}) {
    suite->set("ORRELO_SERVICE_URL", selector);
    EXPECT_NE(mutator.serviceUrl(), "https://localhost:1234");
    EXPECT_FALSE(mutator.certificateFile());
  }
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  EXPECT_EQ(mutator.serviceUrl(), "https://localhost:1234");
  EXPECT_EQ(mutator.certificateFile(), "/ca.pem");
  for (const std::string trailing : {"/", "//"}) {
    suite->set("ORRELO_DEVELOPMENT_URL", "https://localhost:1234/base" + trailing);
    EXPECT_EQ(mutator.serviceUrl(), "https://localhost:1234/base");
  }
  for (const std::string bad : {"http://localhost:1234", "localhost", "https://", "https://a b", ""}) {
    suite->set("ORRELO_DEVELOPMENT_URL", bad);
    EXPECT_EQ(mutator.serviceUrl(), "https://localhost:9443") << bad;
  }
}

TEST(KelsoMutatorTest, AServiceThatTheHostNamesGoesBeforeTheSuiteAndNeverFallsBackToProduction) {
  const auto suite = std::make_shared<MemoryDefaults>();
  suite->set("ORRELO_DEVELOPMENT_CA", std::string("/suite.pem"));
  for (const std::int64_t selector : {0, 1, 3}) {
    suite->set("ORRELO_SERVICE_URL", selector);
    const KelsoMutator stated(suite, {"https://localhost:1234/", "/host.pem"});
    EXPECT_TRUE(stated.isDevelopment());
    EXPECT_EQ(stated.serviceUrl(), "https://localhost:1234");
    EXPECT_EQ(stated.certificateFile(), "/host.pem");
    const KelsoMutator mistaken(suite, {"http://localhost:1234", {}});
    EXPECT_EQ(mistaken.serviceUrl(), "https://localhost:9443");
    EXPECT_EQ(mistaken.certificateFile(), std::nullopt);
  }
  const TemporaryFolder folder;
  const auto data = [&](DevelopmentService service) {
    return Platform::posix({.dataDirectory = folder.path(), .developmentService = std::move(service)})
        .directories->data();
  };
  EXPECT_EQ(data({}), folder.path());
  EXPECT_EQ(data({"https://localhost:1234", {}}), folder.path() / "development");
}

class HttpHeaderGeneratorTest : public testing::Test {
 protected:
  void install(std::shared_ptr<Bundle> main, std::shared_ptr<Bundle> kit) {
    auto changed = Platform::current();
    changed.mainBundle = std::move(main);
    changed.kitBundle = std::move(kit);
    Platform::install(changed);
  }
  HTTPHeaders headers(const std::string& appKey = "app") {
    return HttpHeaderGenerator(platform_.defaults->suite(appKey)).generate();
  }

  TestPlatform platform_;
};

TEST_F(HttpHeaderGeneratorTest, TellsNineThings) {
  const auto made = headers();
  const auto id = platform_.defaults->suite("app")->text(deviceIdKey);
  ASSERT_TRUE(id);
  const HTTPHeaders expected{{"Kelso-UUID", *id},
                             {"sdk_version", "1.0.0"},
                             {"sdk_build_number", "1"},
                             {"os_version", "12"},
                             {"locale", "ko_KR"},
                             {"timezone", "Asia/Seoul"},
                             {"app_name", "com.example.shop"},
                             {"app_version", "2.1"},
                             {"app_version_code", "21"}};
  EXPECT_EQ(made, expected);
  auto withType = expected;
  withType["Content-Type"] = "application/json";
  EXPECT_EQ(withJsonContentType(made), withType);
}

TEST_F(HttpHeaderGeneratorTest, UnknownValuesAreLeftOutOrEmpty) {
  const auto unknown = std::make_shared<FixedBundle>(std::nullopt);
  const auto empty = std::make_shared<FixedBundle>(std::map<std::string, std::string>{});
  install(unknown, unknown);
  for (const auto* const absent :
       {"sdk_version", "sdk_build_number", "app_name", "app_version", "app_version_code"}) {
    EXPECT_EQ(headers().count(absent), 0U) << absent;
  }
  install(empty, empty);
  for (const auto* const blank : {"app_name", "app_version", "app_version_code"}) {
    EXPECT_EQ(headers().at(blank), "") << blank;
  }
}

TEST_F(HttpHeaderGeneratorTest, TheDeviceIdIsMadeOncePerAppKey) {
  const auto suite = platform_.defaults->suite("app");
  suite->set(deviceIdKey, std::string("stored"));
  EXPECT_EQ(headers().at("Kelso-UUID"), "stored");
  EXPECT_EQ(suite->text(deviceIdKey), "stored");

  const auto other = headers("other").at("Kelso-UUID");
  EXPECT_TRUE(Uuid::parse(other)) << other;
  EXPECT_EQ(headers("other").at("Kelso-UUID"), other);
  EXPECT_NE(headers("third").at("Kelso-UUID"), other);

  suite->set(deviceIdKey, std::int64_t{5});  // no text: it counts as missing
  EXPECT_TRUE(Uuid::parse(headers().at("Kelso-UUID")));
  EXPECT_EQ(headers().at("Kelso-UUID"), suite->text(deviceIdKey));
}

/// Device ids of several processes of one host: each has its own factory over one folder.
class DeviceIdTest : public testing::Test {
 protected:
  SqliteUserDefaultsFactory process() {
    const auto files = Platform::posix({.dataDirectory = folder_.path(), .cacheDirectory = folder_.path()});
    return {files.directories, files.clock, "app"};
  }
  static std::string id(SqliteUserDefaultsFactory& factory) {
    return HttpHeaderGenerator(factory.suite("key")).generate().at("Kelso-UUID");
  }
  /// Locks the settings against reads and writes until it is destroyed.
  std::unique_ptr<SQLite::Database> locked() {
    auto holder = std::make_unique<SQLite::Database>((folder_.path() / "defaults-key.sqlite").string(),
                                                     SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    holder->exec("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    return holder;
  }

  TestPlatform platform_;
  TemporaryFolder folder_;
};

TEST_F(DeviceIdTest, TwoProcessesOnAFirstLaunchGetOneId) {
  auto first = process();
  auto second = process();
  // Both have read that there is none.
  EXPECT_EQ(first.suite("key")->text(deviceIdKey), std::nullopt);
  EXPECT_EQ(second.suite("key")->text(deviceIdKey), std::nullopt);
  const auto drawn = id(first);
  EXPECT_EQ(id(second), drawn);
  auto later = process();
  EXPECT_EQ(id(later), drawn);
}

TEST_F(DeviceIdTest, AnIdThatCannotBeReadForNowIsNotReplaced) {
  const auto stored = [this] {
    auto first = process();
    return id(first);
  }();
  for (const bool isWritten : {false, true}) {
    auto second = process();
    auto lock = locked();
    const auto drawn = id(second);
    EXPECT_NE(drawn, stored);
    EXPECT_EQ(id(second), drawn);
    lock.reset();
    if (isWritten) {
      second.suite("key")->set("other", true);
    } else {
      second.refresh();
    }
    EXPECT_EQ(id(second), stored) << isWritten;
  }
}

TEST_F(DeviceIdTest, AnIdThatCouldNotBeStoredIsWrittenByTheNextWrite) {
  auto lock = locked();
  auto first = process();
  const auto drawn = id(first);
  lock.reset();
  first.suite("key")->set("ols_config", std::string("{}"));
  auto later = process();
  EXPECT_EQ(id(later), drawn);
}

}  // namespace
}  // namespace orrelo::test
