#include "platform/StoreSupport.h"
#include "platform/store/SqliteUserDefaults.h"

#include <cmath>
#include <fstream>
#include <limits>
#include <thread>

namespace orrelo::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class SqliteUserDefaultsTest : public ::testing::Test {
 protected:
  SqliteUserDefaultsFactory make() {
    return {std::make_shared<FolderDirectories>(folder_.path()), std::make_shared<ManualClock>(),
            "com.example.app"};
  }

  TemporaryFolder folder_;
};

TEST_F(SqliteUserDefaultsTest, keepsValuesOfEveryTypeAcrossReopening) {
  const std::vector<DefaultsValue> values{true,
                                          std::int64_t{1},
                                          std::numeric_limits<std::int64_t>::min(),
                                          1.0,
                                          -std::numeric_limits<double>::infinity(),
                                          std::string(),
                                          std::string("1"),
                                          std::string("유저\0\xFF", 8),
                                          DefaultsData{},
                                          DefaultsData{std::byte{0}, std::byte{255}}};
  {
    auto factory = make();
    for (std::size_t n = 0; n < values.size(); ++n)
      factory.suite("s")->set("k" + std::to_string(n), values[n]);
    factory.suite("s")->set("", std::numeric_limits<double>::quiet_NaN());
    factory.suite("s")->set("removed", true);
    factory.suite("s")->remove("removed");
    factory.suite("s")->remove("never there");
  }
  const auto suite = make().suite("s");
  for (std::size_t n = 0; n < values.size(); ++n)
    EXPECT_EQ(suite->value("k" + std::to_string(n)), values[n]) << n;
  EXPECT_TRUE(std::isnan(suite->number("").value()));
  EXPECT_EQ(suite->value("removed"), std::nullopt);
}

TEST_F(SqliteUserDefaultsTest, countsAValueOfAnotherTypeAsMissing) {
  const auto suite = make().standard();
  suite->set("k", std::int64_t{1});
  EXPECT_EQ(suite->boolean("k"), std::nullopt);
  EXPECT_EQ(suite->text("k"), std::nullopt);
  suite->set("k", std::string("1"));
  EXPECT_EQ(suite->integer("k"), std::nullopt);
}

TEST_F(SqliteUserDefaultsTest, ignoresRowsWhoseValueIsNotOfTheirType) {
  make().standard()->set("k", std::string("1"));
  make().standard()->set("fine", true);
  SQLite::Database((folder_ / "defaults.sqlite").string(), SQLite::OPEN_READWRITE)
      .exec("UPDATE defaults SET type = 'integer' WHERE key = 'k'");
  const auto suite = make().standard();
  EXPECT_EQ(suite->value("k"), std::nullopt);
  EXPECT_EQ(suite->boolean("fine"), true);
}

TEST_F(SqliteUserDefaultsTest, givesEachNameItsOwnFileInTheFolder) {
  const std::vector<std::string> names{
      "", "a", "A", "a/b", "../a", "%2E.", "앱 키", std::string(500, 'x'), std::string(499, 'x') + "y"};
  {
    auto factory = make();
    factory.standard()->set("name", std::string("the standard one"));
    for (const auto& name : names) factory.suite(name)->set("name", name);
  }
  auto factory = make();
  EXPECT_EQ(factory.standard()->text("name"), "the standard one");
  for (const auto& name : names) EXPECT_EQ(factory.suite(name)->text("name"), name);
  EXPECT_THAT(fileNames(folder_.path()), Contains("defaults-a%2Fb.sqlite"));
}

TEST_F(SqliteUserDefaultsTest, givesOneSuiteForOneNameAndRefusesReservedOnes) {
  auto factory = make();
  EXPECT_EQ(factory.suite("a"), factory.suite("a"));
  EXPECT_EQ(factory.standard(), factory.standard());
  EXPECT_EQ(factory.suite("com.example.app"), nullptr);
  EXPECT_EQ(factory.suite("NSGlobalDomain"), nullptr);
}

TEST_F(SqliteUserDefaultsTest, setsADamagedFileAsideAndStartsFresh) {
  std::ofstream(folder_ / "defaults.sqlite") << std::string(5000, 'x');
  const ExplanationCapture log;
  auto factory = make();
  EXPECT_EQ(factory.standard()->value("k"), std::nullopt);
  factory.standard()->set("k", true);
  EXPECT_EQ(make().standard()->boolean("k"), true);
  EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("defaults.sqlite.corrupt-20231114-221320")));
}

TEST_F(SqliteUserDefaultsTest, writesEverythingAnewWhenTheFileWasRemovedWhileOpen) {
  auto factory = make();
  factory.standard()->set("a", true);
  std::filesystem::remove(folder_ / "defaults.sqlite");
  factory.standard()->set("b", true);
  EXPECT_EQ(make().standard()->boolean("a"), true);
}

TEST_F(SqliteUserDefaultsTest, seesWhatAnotherProcessWroteAfterARefresh) {
  auto mine = make();
  auto theirs = make();
  mine.suite("s")->set("changed", true);
  theirs.suite("s")->set("changed", false);
  theirs.suite("s")->set("added", true);
  EXPECT_EQ(mine.suite("s")->boolean("changed"), true);
  EXPECT_EQ(mine.suite("s")->boolean("added"), std::nullopt);
  mine.refresh();
  EXPECT_EQ(mine.suite("s")->boolean("changed"), false);
  EXPECT_EQ(mine.suite("s")->boolean("added"), true);

  std::filesystem::remove(folder_ / "defaults-s.sqlite");
  mine.refresh();
  EXPECT_EQ(mine.suite("s")->boolean("added"), true) << "a removed file removes no value";
  make().suite("s")->set("changed", true);
  mine.suite("s")->set("last", true);
  EXPECT_EQ(make().suite("s")->boolean("added"), true);
  EXPECT_EQ(make().suite("s")->boolean("changed"), true) << "a value of the other process is not overwritten";
}

TEST_F(SqliteUserDefaultsTest, takesReadsAndWritesFromManyThreads) {
  auto factory = make();
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&, thread] {
      const auto key = "k" + std::to_string(thread);
      for (std::int64_t n = 0; n < 50; ++n) {
        factory.suite("s")->set(key, n);
        EXPECT_EQ(factory.suite("s")->integer(key), n);
        factory.suite("s")->value("k0");
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(make().suite("s")->integer("k3"), 49);
}

}  // namespace
}  // namespace orrelo::test
