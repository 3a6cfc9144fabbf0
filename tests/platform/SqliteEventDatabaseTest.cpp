#include "platform/StoreSupport.h"
#include "platform/store/FileLock.h"

#include <fstream>
#include <map>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orrelo::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

class SqliteEventDatabaseTest : public ::testing::Test {
 protected:
  std::shared_ptr<EventDatabase> open(EventTimeStorage storage = EventTimeStorage::date) {
    return factory_->open("store", storage);
  }
  /// Closes the connection, as the end of the process would.
  void reopen() {
    factory_ = std::make_unique<SqliteEventDatabaseFactory>(directories_, clock_, executor_);
    executor_->runAll();
  }

  /// Runs an operation; returns what it completed with.
  template <class T, class... Given, class... Arguments>
  std::variant<T, Error> run(void (EventDatabase::*operation)(Given...), Arguments... arguments) {
    std::optional<std::variant<T, Error>> result;
    (open().get()->*operation)(std::move(arguments)...,
                               [&](std::variant<T, Error> given) { result = std::move(given); });
    executor_->runAll();
    return std::move(result).value();
  }

  bool insert(EventRow row) {
    return run<std::monostate>(&EventDatabase::insert, std::move(row)).index() == 0;
  }
  std::vector<EventRow> fetch(std::size_t limit = 1000) {
    return std::get<0>(run<std::vector<EventRow>>(&EventDatabase::fetchOldest, limit));
  }
  std::size_t deleteRows(std::vector<std::string> eventIds) {
    return std::get<0>(run<std::size_t>(&EventDatabase::deleteRows, std::move(eventIds)));
  }
  std::size_t deleteUpTo(StoredTime time) {
    return std::get<0>(run<std::size_t>(&EventDatabase::deleteRowsUpTo, std::move(time)));
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "store.sqlite";
  std::shared_ptr<Directories> directories_ = std::make_shared<FolderDirectories>(folder_.path());
  std::shared_ptr<Clock> clock_ = std::make_shared<ManualClock>();
  std::shared_ptr<StepExecutor> executor_ = std::make_shared<StepExecutor>();
  std::unique_ptr<SqliteEventDatabaseFactory> factory_ =
      std::make_unique<SqliteEventDatabaseFactory>(directories_, clock_, executor_);
};

TEST_F(SqliteEventDatabaseTest, keepsRowsAsGivenAcrossReopening) {
  const EventRow full{.eventId = "1",
                      .userId = "유저",
                      .eventName = std::string("a\0b", 3),
                      .eventTime = Date(std::chrono::microseconds(-1'234'567)),
                      .eventValues = "{\n}"};
  ASSERT_TRUE(insert(full));
  ASSERT_TRUE(insert({}));
  reopen();
  EXPECT_THAT(fetch(), ElementsAre(EventRow{}, full));
}

TEST_F(SqliteEventDatabaseTest, fetchesTheOldestFirstAndAtMostTheLimit) {
  for (const auto& [id, seconds] : {std::pair{"c", 3}, {"a", 1}, {"b2", 2}, {"b1", 2}, {"far", -5}}) {
    insert(eventRow(id, seconds));
  }
  EXPECT_THAT(ids(fetch(4)), ElementsAre("far", "a", "b2", "b1"));
  EXPECT_THAT(fetch(static_cast<std::size_t>(-1)), SizeIs(5));
}

TEST_F(SqliteEventDatabaseTest, deletesForEachIdTheFirstRowThatHasIt) {
  insert(eventRow("twice", 2));
  insert(eventRow("twice", 1));
  insert(eventRow("other", 3));
  EXPECT_EQ(deleteRows({"twice", "unknown", "other"}), 2U);
  EXPECT_EQ(fetch().at(0).eventTime, StoredTime(Date::fromSeconds(2)));
  EXPECT_EQ(deleteRows({"unknown"}), 0U);
}

TEST_F(SqliteEventDatabaseTest, deletesUpToATimeInBothStorages) {
  for (int second = 1; second <= 3; ++second) insert(eventRow(std::to_string(second), second));
  EXPECT_EQ(deleteUpTo(Date::fromSeconds(2)), 2U);
  EXPECT_THAT(ids(fetch()), ElementsAre("3"));

  file_ = folder_ / "text.sqlite";
  const auto text = factory_->open("text", EventTimeStorage::text);
  for (const char* time : {"2024-01-02T00:00:00", "2024-01-01T23:59:59", "2023-12-31T00:00:00"}) {
    auto row = eventRow(time);
    row.eventTime = time;
    text->insert(row, nullptr);
  }
  std::size_t deleted = 0;
  std::vector<EventRow> left;
  text->deleteRowsUpTo("2024-01-01T23:59:59", [&](auto result) { deleted = std::get<0>(result); });
  text->fetchOldest(9, [&](auto result) { left = std::get<0>(result); });
  executor_->runAll();
  EXPECT_EQ(deleted, 2U);
  EXPECT_THAT(ids(left), ElementsAre("2024-01-02T00:00:00"));
}

TEST_F(SqliteEventDatabaseTest, readsColumnsOfAForeignTypeAsAbsent) {
  insert(eventRow("1", 1));
  SQLite::Database(file_.string(), SQLite::OPEN_READWRITE)
      .exec("UPDATE events SET eventId = x'00', userId = x'', eventName = NULL, eventTime = 'noon'");
  EventRow left;
  left.eventValues = "{}";
  EXPECT_THAT(fetch(), ElementsAre(left));
}

TEST_F(SqliteEventDatabaseTest, commitsWhatWaitsTogetherThenCompletesInOrder) {
  insert(eventRow("0"));
  SQLite::Database other(file_.string());
  SQLite::Statement count(other, "SELECT count(*) FROM events");
  const auto visibleRows = [&] {
    count.reset();
    count.executeStep();
    return count.getColumn(0).getInt();
  };
  std::vector<std::string> order;
  const auto store = open();
  store->insert(eventRow("1", 1), [&](auto) {
    order.push_back("1 sees " + std::to_string(visibleRows()));
    store->insert(eventRow("4", 4),
                  [&](auto) { order.push_back("4 sees " + std::to_string(visibleRows())); });
  });
  store->fetchOldest(
      9, [&](auto rows) { order.push_back("fetched " + std::to_string(std::get<0>(rows).size())); });
  store->deleteRows({"0"}, [&](auto) { order.push_back("deleted"); });
  store->insert(eventRow("3", 3), [&](auto) { throw std::runtime_error("must do no harm"); });
  EXPECT_EQ(visibleRows(), 1);
  executor_->runOne();
  EXPECT_THAT(order, ElementsAre("1 sees 2", "fetched 2", "deleted"));
  executor_->runAll();
  EXPECT_EQ(order.back(), "4 sees 3");
}

TEST_F(SqliteEventDatabaseTest, failsWhileAnotherConnectionWritesAndWorksAfterwards) {
  insert(eventRow("1", 1));
  std::vector<std::string> results;
  const auto note = [&](const auto& result) {
    results.push_back(result.index() == 0 ? "ok" : std::get<Error>(result).caseName());
  };
  {
    SQLite::Database other(file_.string(), SQLite::OPEN_READWRITE);
    SQLite::Transaction writing(other, SQLite::TransactionBehavior::IMMEDIATE);
    open()->insert(eventRow("2"), note);
    open()->fetchOldest(1, note);
    open()->insert(eventRow("3"), note);
    executor_->runAll();
  }
  EXPECT_THAT(results, ElementsAre("busy", "ok", "busy"));
  EXPECT_TRUE(insert(eventRow("4", 4)));
  EXPECT_THAT(ids(fetch()), ElementsAre("1", "4"));
}

TEST_F(SqliteEventDatabaseTest, takesInsertsFromManyThreads) {
  constexpr int threads = 8;
  constexpr int each = 2000;
  executor_.reset();
  factory_ = std::make_unique<SqliteEventDatabaseFactory>(directories_, clock_);
  const auto store = open();
  std::atomic<int> failures = 0;
  std::vector<std::thread> writers;
  for (int thread = 0; thread < threads; ++thread) {
    writers.emplace_back([&, thread] {
      for (int n = 0; n < each; ++n) {
        store->insert(eventRow(std::to_string(thread), n),
                      [&](const auto& result) { failures += static_cast<int>(result.index()); });
      }
    });
  }
  for (auto& writer : writers) writer.join();
  std::promise<std::vector<EventRow>> rows;
  store->fetchOldest(1'000'000, [&](auto result) { rows.set_value(std::get<0>(std::move(result))); });
  EXPECT_THAT(rows.get_future().get(), SizeIs(threads * each));
  EXPECT_EQ(failures, 0);
}

TEST_F(SqliteEventDatabaseTest, startsAnewWhenTheFileIsRemovedWhileOpen) {
  insert(eventRow("1"));
  std::filesystem::remove(file_);
  ASSERT_TRUE(insert(eventRow("2")));
  reopen();
  EXPECT_THAT(ids(fetch()), Contains("2"));
}

TEST_F(SqliteEventDatabaseTest, insertsOnceWhatHasTheSameTimeAndId) {
  const auto insertOnce = [&](EventRow row) {
    return run<std::monostate>(&EventDatabase::insertOnce, std::move(row)).index() == 0;
  };
  insert(eventRow("a", 1));
  EXPECT_TRUE(insertOnce(eventRow("a", 1)));
  EXPECT_TRUE(insertOnce(eventRow("a", 2)));
  EXPECT_TRUE(insertOnce(eventRow("b", 1)));
  EXPECT_TRUE(insertOnce({}));
  reopen();
  EXPECT_TRUE(insertOnce({}));
  EXPECT_TRUE(insertOnce(eventRow("b", 1)));
  EXPECT_THAT(ids(fetch()), ElementsAre("absent", "a", "b", "a"));
}

TEST_F(SqliteEventDatabaseTest, countsItsRowsWithoutAnOperation) {
  EXPECT_EQ(open()->status().rowCount, std::nullopt);
  for (const auto* const id : {"a", "b", "c"}) insert(eventRow(id, 1));
  run<std::monostate>(&EventDatabase::insertOnce, eventRow("a", 1));
  EXPECT_EQ(open()->status().rowCount, 3u);
  deleteRows({"a", "none"});
  EXPECT_EQ(open()->status().rowCount, 2u);
  reopen();
  fetch(1);
  EXPECT_EQ(open()->status().rowCount, 2u) << "counted when the file is opened";
  SQLite::Database other(file_.string(), SQLite::OPEN_READWRITE);
  other.exec("INSERT INTO events (eventId) VALUES ('other')");
  fetch();
  EXPECT_EQ(open()->status().rowCount, 3u) << "another process's rows are found with all others";
  other.exec("BEGIN IMMEDIATE");
  insert(eventRow("d", 1));
  EXPECT_TRUE(isStoreRefusal(open()->status().failure.value()));
  EXPECT_EQ(open()->status().rowCount, 3u);
  other.exec("ROLLBACK");
  deleteUpTo(Date::fromSeconds(-10));
  EXPECT_TRUE(open()->status().failure.has_value()) << "looking for rows is not writing";
  insert(eventRow("d", 1));
  EXPECT_EQ(open()->status().failure, std::nullopt);
  deleteUpTo(Date::fromSeconds(10));
  EXPECT_EQ(open()->status().rowCount, fetch().size());
}

TEST_F(SqliteEventDatabaseTest, letsNobodyElseReadItsFiles) {
  const auto modes = [&] {
    std::map<std::string, mode_t> found;
    for (const auto& name : fileNames(folder_.path())) {
      struct stat status {};
      ::stat((folder_ / name).c_str(), &status);
      found[name] = status.st_mode & 0777;
    }
    return found;
  };
  const std::map<std::string, mode_t> own{
      {"store.sqlite", 0600}, {"store.sqlite-shm", 0600}, {"store.sqlite-wal", 0600}};
  insert(eventRow("1"));
  EXPECT_EQ(modes(), own);
  for (const auto& name : fileNames(folder_.path())) ::chmod((folder_ / name).c_str(), 0644);
  const auto first =
      std::exchange(factory_, std::make_unique<SqliteEventDatabaseFactory>(directories_, clock_, executor_));
  EXPECT_THAT(ids(fetch()), ElementsAre("1"));
  EXPECT_EQ(modes(), own) << "files of an earlier version";
}

// -- Damaged files

using Damage = std::function<void(const std::filesystem::path&)>;

void overwrite(const std::filesystem::path& path, std::uintmax_t from, std::uintmax_t count) {
  std::fstream stream(path, std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(static_cast<std::streamoff>(from));
  stream << std::string(static_cast<std::size_t>(count), '\xAA');
}

class DamagedStoreTest : public SqliteEventDatabaseTest, public ::testing::WithParamInterface<Damage> {};

TEST_P(DamagedStoreTest, isSetAsideOnceAndReplaced) {
  for (int n = 0; n < 500; ++n) open()->insert(eventRow(std::to_string(n), n), nullptr);
  executor_->runAll();
  reopen();
  std::filesystem::remove(folder_ / "store.sqlite-wal");
  GetParam()(file_);
  const ExplanationCapture log;
  for (int n = 0; n < 3; ++n) {
    EXPECT_TRUE(insert(eventRow("new" + std::to_string(n), 600 + n)));
    fetch();
    deleteUpTo(Date::fromSeconds(500));
  }
  EXPECT_THAT(ids(fetch()), Contains("new2"));
  EXPECT_THAT(log.lines(), ElementsAre(AllOf(StartsWith("error: "), HasSubstr("20231114-221320"))));
  EXPECT_THAT(fileNames(folder_.path()), Contains("store.sqlite.corrupt-20231114-221320"));
}

void execute(const std::filesystem::path& path, const char* sql) {
  SQLite::Database(path.string(), SQLite::OPEN_READWRITE).exec(sql);
}

const std::vector<Damage> damages{
    [](const auto& path) { overwrite(path, 4096, std::filesystem::file_size(path) - 4096); },
    [](const auto& path) { overwrite(path, 0, 100); },
    [](const auto& path) { std::filesystem::resize_file(path, 4096 + 1000); },
    [](const auto& path) {
      std::filesystem::remove(path);
      std::filesystem::create_directories(path / "in the way");
    },
    [](const auto& path) {
      std::filesystem::remove(path);
      ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    },
    [](const auto& path) {
      std::filesystem::remove(path);
      std::filesystem::create_symlink("nowhere/store", path);
    },
    [](const auto& path) { execute(path, "DROP TABLE events; CREATE TABLE events (eventId, eventTime)"); },
    [](const auto& path) {
      execute(path,
              "DROP TABLE events;"
              "CREATE TABLE events (eventId, userId, eventName, eventTime, eventValues, more NOT NULL)");
    }};

INSTANTIATE_TEST_SUITE_P(, DamagedStoreTest, ::testing::ValuesIn(damages));

TEST_F(SqliteEventDatabaseTest, takesAnEmptyFileForAFreshOne) {
  std::ofstream(file_).flush();
  const ExplanationCapture log;
  EXPECT_TRUE(insert(eventRow("1")));
  EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(SqliteEventDatabaseTest, numbersFilesSetAsideInOneSecond) {
  for (int n = 0; n < 3; ++n) {
    reopen();
    std::filesystem::remove(folder_ / "store.sqlite-wal");
    std::ofstream(file_) << std::string(5000, 'x');
    EXPECT_TRUE(insert(eventRow("1")));
  }
  EXPECT_THAT(fileNames(folder_.path()), AllOf(Contains("store.sqlite.corrupt-20231114-221320"),
                                               Contains("store.sqlite.corrupt-20231114-221320-1"),
                                               Contains("store.sqlite.corrupt-20231114-221320-2")));
}

TEST_F(SqliteEventDatabaseTest, failsWhileItsFolderIsMissing) {
  directories_ = std::make_shared<FolderDirectories>(folder_ / "later");
  reopen();
  EXPECT_FALSE(insert(eventRow("1")));
  std::filesystem::create_directory(folder_ / "later");
  EXPECT_TRUE(insert(eventRow("1")));
}

// -- Several processes

/// Forks a process that exits with success if `body` returns true.
pid_t inChild(const std::function<bool()>& body) {
  const auto child = fork();
  if (child == 0) _exit(body() ? 0 : 1);
  return child;
}

bool succeeded(pid_t child) {
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(SqliteEventDatabaseTest, letsOneSendUntilItLetsGoOrEnds) {
  const auto acquire = [&](const std::string& name) {
    std::shared_ptr<const void> right;
    factory_->open(name, EventTimeStorage::date)->acquireSending([&](auto result) {
      right = std::get<0>(std::move(result));
    });
    executor_->runAll();
    return right;
  };
  auto right = acquire("store");
  ASSERT_TRUE(right);
  EXPECT_FALSE(acquire("store"));
  EXPECT_TRUE(succeeded(inChild([&] {
    static const auto held = acquire("other");
    return !acquire("store") && held;
  })));
  EXPECT_TRUE(acquire("other"));
  right.reset();
  EXPECT_FALSE(FileLock::acquire(folder_ / "store.sqlite.lock")) << "released by a task of the executor";
  executor_->runAll();
  EXPECT_TRUE(succeeded(inChild([&] { return acquire("store") != nullptr; })));
}

TEST_F(SqliteEventDatabaseTest, sharesTheFileWithAnotherProcess) {
  constexpr int each = 200;
  const auto fill = [&](const std::string& name) {
    for (int n = 0; n < each;) n += insert(eventRow(name, n)) ? 1 : 0;  // refused while the other one writes
    return true;
  };
  const auto first = inChild([&] { return fill("first"); });
  const auto second = inChild([&] { return fill("second"); });
  EXPECT_TRUE(succeeded(first));
  EXPECT_TRUE(succeeded(second));
  EXPECT_EQ(fetch().size(), 2U * each);
}

}  // namespace
}  // namespace orrelo::test
