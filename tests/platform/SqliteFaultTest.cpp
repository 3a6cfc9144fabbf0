#include "base/preconditionFailure.h"
#include "platform/StoreSupport.h"
#include "platform/store/SqliteUserDefaults.h"
#include "support/FaultVfs.h"

#include <cerrno>
#include <map>
#include <set>
#include <sqlite3.h>

namespace orrelo::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

using Call = FaultVfs::Call;
using Rows = std::map<std::string, std::int64_t>;

/// One operation on the store, and its effect on the rows when it succeeds.
struct Step {
  std::function<void(EventDatabase&, const std::function<void(bool)>&)> call;
  std::function<void(Rows&)> effect;
};

template <class T>
EventDatabase::Completion<T> reporting(const std::function<void(bool)>& report) {
  return [report](const std::variant<T, Error>& result) { report(result.index() == 0); };
}

Step inserting(const std::string& id, std::int64_t seconds, std::size_t size = 2) {
  return {[=](EventDatabase& store, const auto& report) {
            auto row = eventRow(id, seconds);
            row.eventValues = std::string(size, 'v');
            store.insert(row, reporting<std::monostate>(report));
          },
          [=](Rows& rows) { rows.emplace(id, seconds); }};
}

Step fetching() {
  return {[](EventDatabase& store, const auto& report) {
            store.fetchOldest(10, reporting<std::vector<EventRow>>(report));
          },
          [](Rows&) {}};
}

Step deleting(const std::string& id) {
  return {[=](EventDatabase& store, const auto& report) {
            store.deleteRows({id, "unknown"}, reporting<std::size_t>(report));
          },
          [=](Rows& rows) { rows.erase(id); }};
}

Step deletingUpTo(std::int64_t seconds) {
  return {[=](EventDatabase& store, const auto& report) {
            store.deleteRowsUpTo(Date::fromSeconds(seconds), reporting<std::size_t>(report));
          },
          [=](Rows& rows) { std::erase_if(rows, [&](const auto& row) { return row.second <= seconds; }); }};
}

std::set<std::string> idsIn(const std::filesystem::path& path) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE);
  std::set<std::string> found;
  if (!database.tableExists("events")) return found;
  SQLite::Statement select(database, "SELECT eventId FROM events");
  while (select.executeStep())
    EXPECT_TRUE(found.insert(select.getColumn(0).getString()).second) << "stored twice";
  return found;
}

std::set<std::string> idsOf(const Rows& rows) {
  std::set<std::string> ids;
  for (const auto& [id, seconds] : rows) ids.insert(id);
  return ids;
}

/// A store in its own folder, and the rows that it should hold.
class Life {
 public:
  /// Runs each group of steps in one turn of the executor; returns the steps that failed.
  std::vector<Step> run(const std::vector<std::vector<Step>>& groups) {
    std::vector<Step> failed;
    for (const auto& group : groups) {
      std::size_t completed = 0;
      for (const auto& step : group) {
        step.call(*store(), [&, step](bool isDone) {
          ++completed;
          if (isDone) {
            step.effect(expected);
          } else {
            failed.push_back(step);
          }
        });
      }
      executor_->runAll();
      EXPECT_EQ(completed, group.size());
    }
    return failed;
  }

  void reopen() {
    factory_ = std::make_unique<SqliteEventDatabaseFactory>(directories_, clock_, executor_);
    executor_->runAll();
  }

  /// The ids in the current file and in the files set aside.
  std::set<std::string> idsAnywhere() {
    std::set<std::string> all;
    for (const auto& name : fileNames(folder.path())) {
      if (name.ends_with("-wal") || name.ends_with("-shm")) continue;
      all.merge(idsIn(folder / name));
    }
    return all;
  }

  TemporaryFolder folder;
  std::filesystem::path file = folder / "store.sqlite";
  Rows expected;

 private:
  std::shared_ptr<EventDatabase> store() { return factory_->open("store", EventTimeStorage::date); }

  std::shared_ptr<Directories> directories_ = std::make_shared<FolderDirectories>(folder.path());
  std::shared_ptr<Clock> clock_ = std::make_shared<ManualClock>();
  std::shared_ptr<StepExecutor> executor_ = std::make_shared<StepExecutor>();
  std::unique_ptr<SqliteEventDatabaseFactory> factory_ =
      std::make_unique<SqliteEventDatabaseFactory>(directories_, clock_, executor_);
};

struct Fault {
  Call call;
  int code;
  int systemError = 0;
};

// NOLINTNEXTLINE(readability-identifier-naming): GoogleTest calls it by this name.
void PrintTo(const Fault& fault, std::ostream* stream) {
  *stream << "call " << static_cast<int>(fault.call) << ", code " << fault.code;
}

class SqliteFaultTest : public ::testing::Test {
 protected:
  SqliteFaultTest() {
    FaultVfs::instance().clear();
    setPreconditionFailureHandler(
        [](std::string_view message) { throw std::runtime_error(std::string(message)); });
  }
  ~SqliteFaultTest() override {
    FaultVfs::instance().clear();
    setPreconditionFailureHandler({});
  }

  static std::vector<std::vector<Step>> wholeLife(std::size_t largest) {
    return {{inserting("a", 1), fetching(), inserting("b", 2)},
            {inserting("c", 3, largest)},
            {fetching()},
            {deleting("a")},
            {deletingUpTo(2), inserting("d", 4)},
            {deletingUpTo(1)},
            {inserting("e", 5)}};
  }

  /// Returns whether the fault occurred before the steps were done.
  static bool liveThrough(const FaultVfs::Order& order, bool startsFull, std::size_t largest) {
    SCOPED_TRACE("at call " + std::to_string(order.nth) + (order.lasts ? " and later" : ""));
    Life life;
    if (startsFull) life.run({{inserting("old", 0), inserting("older", 6)}});
    life.reopen();
    FaultVfs::instance().order(order);
    const auto failed = life.run(wholeLife(largest));
    const bool hasFailed = FaultVfs::instance().hasFailed();
    FaultVfs::instance().clear();

    if ((order.code & 0xFF) == SQLITE_CORRUPT || order.code == SQLITE_NOTADB) {
      EXPECT_THAT(life.idsAnywhere(), IsSupersetOf(idsOf(life.expected)));
    } else {
      if (std::filesystem::exists(life.file)) {
        EXPECT_EQ(idsIn(life.file), idsOf(life.expected));
      }
      EXPECT_THAT(life.run({failed}), IsEmpty());
      life.reopen();
      EXPECT_THAT(life.run({{inserting("late", 9)}}), IsEmpty());
      EXPECT_EQ(idsIn(life.file), idsOf(life.expected));
    }
    EXPECT_THAT(life.run({{inserting("last", 9), fetching()}}), IsEmpty());
    return hasFailed;
  }
};

TEST_F(SqliteFaultTest, stopsTheProcessWhenAFreshFileCannotBeOpenedEither) {
  Life life;
  FaultVfs::instance().order({Call::open, SQLITE_CANTOPEN, 1, true, "store.sqlite", EISDIR});
  std::string message;
  setPreconditionFailureHandler([&](std::string_view given) {
    message = given;
    throw std::runtime_error("stopped");
  });
  life.run({{inserting("a", 1)}});
  EXPECT_THAT(message, HasSubstr("Unresolved error SQLite.cantOpen"));
  EXPECT_THAT(message, HasSubstr("store.sqlite"));
}

class EachFaultTest : public SqliteFaultTest, public ::testing::WithParamInterface<Fault> {};

TEST_P(EachFaultTest, losesNothingWhicheverCallFails) {
  const auto [call, code, systemError] = GetParam();
  const bool mayLast = code != SQLITE_CORRUPT && code != SQLITE_NOTADB;
  for (const bool startsFull : {false, true}) {
    for (const bool lasts : {false, mayLast}) {
      for (int nth = 1; liveThrough({call, code, nth, lasts, "store", systemError}, startsFull, 2); ++nth)
        continue;
    }
  }
  // A value large enough to cause a checkpoint; only some of its many calls fail.
  for (int nth = 1; liveThrough({call, code, nth, mayLast, "store", systemError}, true, 4'300'000);
       nth += 1 + nth / 2) {
    continue;
  }
}

TEST_P(EachFaultTest, leavesSettingsInMemoryAndUsableWhicheverCallFails) {
  const auto [call, code, systemError] = GetParam();
  const auto clock = std::make_shared<ManualClock>();
  bool hasFailed = true;
  for (int nth = 1; hasFailed; ++nth) {
    SCOPED_TRACE("at call " + std::to_string(nth));
    const TemporaryFolder folder;
    const auto directories = std::make_shared<FolderDirectories>(folder.path());
    SqliteUserDefaultsFactory(directories, clock, "app").suite("s")->set("before", true);
    {
      SqliteUserDefaultsFactory factory(directories, clock, "app");
      const auto suite = factory.suite("s");
      FaultVfs::instance().order({call, code, nth, false, "defaults-s", systemError});
      suite->boolean("before");
      suite->set("kept", std::string("v"));
      suite->remove("before");
      EXPECT_EQ(suite->text("kept"), "v");
      hasFailed = FaultVfs::instance().hasFailed();
      FaultVfs::instance().clear();
      EXPECT_EQ(suite->boolean("before"), std::nullopt);
      suite->set("later", std::int64_t{1});
    }
    EXPECT_EQ(SqliteUserDefaultsFactory(directories, clock, "app").suite("s")->integer("later"), 1);
  }
}

INSTANTIATE_TEST_SUITE_P(
    , EachFaultTest,
    ::testing::Values(Fault{Call::open, SQLITE_CANTOPEN, EACCES}, Fault{Call::open, SQLITE_IOERR},
                      Fault{Call::read, SQLITE_IOERR_READ}, Fault{Call::read, SQLITE_CORRUPT},
                      Fault{Call::read, SQLITE_NOTADB}, Fault{Call::write, SQLITE_IOERR_WRITE},
                      Fault{Call::write, SQLITE_FULL}, Fault{Call::write, SQLITE_CORRUPT},
                      Fault{Call::write, SQLITE_READONLY}, Fault{Call::sync, SQLITE_IOERR_FSYNC},
                      Fault{Call::sync, SQLITE_FULL}, Fault{Call::truncate, SQLITE_IOERR_TRUNCATE},
                      Fault{Call::lock, SQLITE_IOERR_LOCK}, Fault{Call::lock, SQLITE_BUSY}));

}  // namespace
}  // namespace orrelo::test
