#include "platform/StoreSupport.h"
#include "platform/journal/FileEventJournal.h"
#include "platform/journal/JournalFormat.h"
#include "platform/posix/SystemRandom.h"
#include "platform/store/Files.h"
#include "platform/threads/PosixWorkerPool.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orrelo::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

using Positions = std::vector<EventJournal::Position>;
using Refusal = EventJournal::Refusal;
using Texts = std::vector<std::string>;

/// Runs each task inside `post`, so that a test sees its effects at once, unless the workers are held.
class ImmediateExecutor final : public SerialExecutor, public WorkerPool {
 public:
  void post(SerialExecutor::Task task) override { task(); }
  void post(QualityOfService, WorkerPool::Task task) override {
    if (holdsWorkers) return held.push_back(std::move(task));
    task();
  }
  void postAfter(QualityOfService, std::chrono::microseconds, WorkerPool::Task) override {
    FAIL() << "not used";
  }

  bool holdsWorkers = false;
  std::vector<WorkerPool::Task> held;
};

EventJournal::Record recordOf(const std::string& content) {
  return EventJournal::Record::copyOf(std::string(EventJournal::headerSize, '-') + content);
}

class FileEventJournalTest : public ::testing::Test {
 protected:
  using JournalPtr = std::unique_ptr<FileEventJournal>;
  using Adopted = std::vector<std::map<EventJournal::Position, std::string>>;

  JournalPtr open() { return std::make_unique<FileEventJournal>(environment_); }
  /// With the threads of a real process, which do not outlive a fork.
  JournalPtr openWithThreads() {
    auto environment = environment_;
    environment.executor = writer_ = std::make_shared<WriterQueue>();
    environment.workers = std::make_shared<PosixWorkerPool>();
    return std::make_unique<FileEventJournal>(environment);
  }

  /// Waits for the tasks of the writer's thread.
  void runTasks() {
    std::promise<void> isDone;
    writer_->post([&] { isDone.set_value(); });
    isDone.get_future().wait();
  }

  static EventJournal::Position append(EventJournal& journal, const std::string& content) {
    const auto result = journal.append(recordOf(content));
    EXPECT_EQ(result.index(), 0U) << content.substr(0, 20);
    return result.index() == 0 ? std::get<0>(result) : 0;
  }
  static std::optional<Refusal> refusal(EventJournal& journal, const std::string& content) {
    const auto result = journal.append(recordOf(content));
    return result.index() == 0 ? std::nullopt : std::optional(std::get<Refusal>(result));
  }

  /// The records of each journal that is taken over.
  static Adopted adopt(EventJournal& journal) {
    Adopted all;
    journal.maintain([&](std::vector<EventJournal::Adopted> records) {
      auto& contents = all.emplace_back();
      for (const auto& [position, record] : records) {
        contents.emplace(position, record.view().substr(EventJournal::headerSize));
      }
    });
    return all;
  }
  static Texts textsOf(const Adopted& adopted) {
    Texts texts;
    for (const auto& journal : adopted) {
      for (const auto& [position, content] : journal) texts.push_back(content);
    }
    return texts;
  }
  /// What a process finds that starts now and ends without releasing anything.
  Texts left() { return textsOf(adopt(*open())); }

  Texts files() const { return fileNames(folder_.path()); }
  std::filesystem::path onlyFile() const {
    EXPECT_THAT(files(), SizeIs(1));
    return folder_ / files().at(0);
  }
  std::string bytesInFolder() const {
    std::string bytes;
    for (const auto& name : files()) bytes += Files::read(folder_ / name, std::size_t{1} << 30);
    return bytes;
  }

  TemporaryFolder folder_;
  std::shared_ptr<FolderDirectories> directories_ = std::make_shared<FolderDirectories>(folder_.path());
  std::shared_ptr<ManualClock> clock_ = std::make_shared<ManualClock>();
  std::shared_ptr<ImmediateExecutor> executor_ = std::make_shared<ImmediateExecutor>();
  std::shared_ptr<WriterQueue> writer_;
  JournalEnvironment environment_{directories_, clock_, std::make_shared<SystemRandom>(), executor_,
                                  executor_};
};

/// Forks a process that exits with success if `body` returns true.
pid_t forked(const std::function<bool()>& body, pid_t (*make)() = &fork) {
  const auto child = make();
  if (child == 0) _exit(body() ? 0 : 1);
  return child;
}

bool hasSucceeded(pid_t child) {
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// -- Adoption

TEST_F(FileEventJournalTest, leavesToTheNextProcessWhatIsNotReleased) {
  auto journal = open();
  journal->prepare();
  EXPECT_EQ(std::filesystem::status(onlyFile()).permissions(), std::filesystem::perms(0600));
  Positions positions;
  for (const char* content : {"a", "b", "c", "", "e"}) positions.push_back(append(*journal, content));
  EXPECT_TRUE(std::is_sorted(positions.begin(), positions.end()));
  journal->release({positions[1], 7, positions[2]});
  EXPECT_THAT(left(), IsEmpty()) << "a living process keeps its journal";
  journal.reset();

  // An adopter that ends leaves what it has not released.
  auto adopter = open();
  auto adopted = adopt(*adopter);
  EXPECT_THAT(textsOf(adopted), ElementsAre("a", "", "e"));
  EXPECT_THAT(adopt(*adopter), IsEmpty());
  EXPECT_THAT(left(), IsEmpty());
  adopter->release({adopted.at(0).begin()->first});
  adopter.reset();
  EXPECT_THAT(left(), ElementsAre("", "e"));

  adopter = open();
  append(*adopter, "own");
  adopted = adopt(*adopter);
  for (const auto& [position, content] : adopted.at(0)) adopter->release({position, position});
  EXPECT_THAT(files(), SizeIs(1));
  adopter.reset();
  EXPECT_THAT(left(), ElementsAre("own"));
}

TEST_F(FileEventJournalTest, survivesSigkillAfterEachReturn) {
  for (int run = 0; run < 5; ++run) {
    std::array<int, 2> pipeEnds{};
    ASSERT_EQ(pipe(pipeEnds.data()), 0);
    const auto child = forked([&] {
      const auto journal = openWithThreads();
      for (std::uint32_t n = 0;; ++n) {
        append(*journal, std::to_string(n));
        if (write(pipeEnds[1], &n, sizeof(n)) != ssize_t{sizeof(n)}) return false;
      }
    });
    std::uint32_t told = 0;
    while (told < 1000U * static_cast<unsigned>(run) + 1)
      ASSERT_EQ(read(pipeEnds[0], &told, sizeof(told)), 4);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(pipeEnds[1]);
    while (read(pipeEnds[0], &told, sizeof(told)) > 0) continue;
    close(pipeEnds[0]);
    auto adopter = open();
    const auto adopted = adopt(*adopter);
    ASSERT_THAT(adopted, SizeIs(1));
    const auto texts = textsOf(adopted);
    ASSERT_GT(texts.size(), told);
    for (std::size_t n = 0; n < texts.size(); ++n) ASSERT_EQ(texts[n], std::to_string(n));
    for (const auto& [position, content] : adopted[0]) adopter->release({position});
    EXPECT_THAT(files(), IsEmpty());
  }
}

TEST_F(FileEventJournalTest, leavesAloneWhatIsNoJournalOfItsOwn) {
  const auto path = [&](char digit) { return folder_ / ("events-" + std::string(16, digit) + ".journal"); };
  std::filesystem::create_directory(path('1'));
  std::ofstream(folder_ / "target") << "host's";
  std::filesystem::create_symlink(folder_ / "target", path('2'));
  ASSERT_EQ(mkfifo(path('3').c_str(), 0600), 0);
  auto later = journal::fileHeader(4);
  later.at(8) = 2;
  std::ofstream(path('4')) << later;
  std::ofstream(folder_ / "events-foreign.journal") << "host's";
  std::filesystem::create_directory(folder_ / "events-5555555555555555.journal.new");
  Texts kept = files();
  if (geteuid() == 0) {
    std::ofstream(path('6')) << journal::fileHeader(6);
    ASSERT_EQ(chown(path('6').c_str(), 12345, 12345), 0);
    kept = files();
  }
  // These are removed: empty, noise, and what a dead maker has left.
  std::ofstream(path('7')).flush();
  std::ofstream(path('8')) << std::string(300'000, 'n');
  std::ofstream(folder_ / "events-9999999999999999.journal.new") << journal::fileHeader(9);
  const auto making = JournalFile::create(folder_.path(), *environment_.random, JournalFile::Maker::writer);
  ASSERT_TRUE(making);
  kept.push_back(journal::temporaryName(making->seed()));

  clock_->setNow(Date::fromSeconds(std::time(nullptr)));
  const auto journal = open();
  {
    const ExplanationCapture log;
    for (int n = 0; n < 2; ++n) EXPECT_THAT(adopt(*journal), IsEmpty());
    EXPECT_THAT(log.lines(),
                AllOf(SizeIs(kept.size() - 4 + 2), Each(StartsWith("warning: ")),
                      Contains(HasSubstr("300000 bytes")), Contains(HasSubstr("later version"))));
    EXPECT_THAT(files(), ::testing::UnorderedElementsAreArray(kept));
  }
  clock_->advance(std::chrono::hours(24));
  adopt(*journal);
  EXPECT_FALSE(std::filesystem::exists(path('4')));
  making->closeWriter();
  adopt(*journal);
  EXPECT_THAT(files(), Not(Contains(kept.back())));
}

// -- Refusals

TEST_F(FileEventJournalTest, countsTheLiveRecordsOfAllJournals) {
  constexpr auto largest = EventJournal::maximumRecordSize - EventJournal::headerSize;
  const auto journal = open();
  const auto other = open();
  EXPECT_EQ(refusal(*journal, std::string(largest + 1, 'x')), Refusal::tooLarge);
  Positions positions;
  const std::string content(largest, 'x');
  while (positions.size() < EventJournal::maximumLiveSize / EventJournal::maximumRecordSize) {
    positions.push_back(append(*journal, content));
  }
  EXPECT_EQ(refusal(*journal, ""), Refusal::full);
  EXPECT_EQ(refusal(*other, ""), std::nullopt);
  adopt(*other);
  EXPECT_EQ(refusal(*other, ""), Refusal::full);
  journal->release(positions);
  EXPECT_EQ(refusal(*journal, content), std::nullopt);
  adopt(*other);
  EXPECT_EQ(refusal(*other, ""), std::nullopt);
}

TEST_F(FileEventJournalTest, refusesWhileItsFileCannotBeMadeOrWritten) {
  environment_.directories = std::make_shared<FolderDirectories>(folder_ / "later");
  const auto journal = open();
  journal->prepare();
  EXPECT_EQ(refusal(*journal, "a"), Refusal::unwritable);
  std::filesystem::create_directory(folder_ / "later");
  EXPECT_EQ(refusal(*journal, "a"), Refusal::unwritable) << "not tried again with each event";
  clock_->advance(std::chrono::seconds(1));
  EXPECT_EQ(refusal(*journal, "a"), std::nullopt);
}

TEST_F(FileEventJournalTest, countsATornRecordAsNotWritten) {
  EXPECT_TRUE(hasSucceeded(forked([&] {
    const auto journal = open();
    append(*journal, "before");
    const auto limit = [](rlim_t size) {
      std::signal(SIGXFSZ, SIG_IGN);
      rlimit sizes{};
      getrlimit(RLIMIT_FSIZE, &sizes);
      sizes.rlim_cur = std::min(size, sizes.rlim_max);
      return setrlimit(RLIMIT_FSIZE, &sizes) == 0;
    };
    const auto size = std::filesystem::file_size(onlyFile());
    if (!limit(size + 100)) return false;
    for (int n = 0; n < 2; ++n) {
      if (refusal(*journal, std::string(200, 't')) != Refusal::unwritable) return false;
    }
    return limit(RLIM_INFINITY) && append(*journal, "after") != 0;
  })));
  const ExplanationCapture log;
  EXPECT_THAT(left(), ElementsAre("before", "after"));
  EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("100 bytes")));
}

// -- A new file in the place of the old one

TEST_F(FileEventJournalTest, freesTheBytesOfReleasedRecords) {
  const auto journal = open();
  const auto keepsOneFile = [&](std::size_t size) {
    return files().size() == 1 && std::filesystem::file_size(onlyFile()) <= size;
  };
  // A small file is replaced by `maintain`.
  journal->release({append(*journal, "secret")});
  EXPECT_THAT(bytesInFolder(), HasSubstr("secret"));
  adopt(*journal);
  EXPECT_THAT(bytesInFolder(), AllOf(Not(HasSubstr("secret")), SizeIs(sizeof(journal::FileHeader))));
  const auto idle = onlyFile();
  adopt(*journal);
  EXPECT_EQ(onlyFile(), idle) << "nothing to free";

  // A larger one at once, and a large one when most of it is released.
  for (int n = 0; n < 1000; ++n) {
    journal->release({append(*journal, std::string(1000, 's'))});
    ASSERT_TRUE(keepsOneFile(200'000)) << n;
  }
  const auto first = append(*journal, "first");
  for (int n = 0; n < 5000; ++n) {
    journal->release({append(*journal, std::string(1000, 's'))});
    ASSERT_TRUE(keepsOneFile(1'200'000)) << n;
  }
  append(*journal, "second");
  EXPECT_THAT(bytesInFolder(), AllOf(HasSubstr("first"), HasSubstr("second")));
  journal->release({first});
  EXPECT_THAT(left(), IsEmpty());
}

TEST_F(FileEventJournalTest, carriesWhatChangesWhileItsFileIsReplaced) {
  auto journal = open();
  append(*journal, "kept");
  const auto gone = append(*journal, "gone");
  Positions positions;
  for (int n = 0; n < 10; ++n) positions.push_back(append(*journal, std::string(200'000, 'x')));
  executor_->holdsWorkers = true;
  journal->release(positions);
  const auto added = append(*journal, "added and gone");
  append(*journal, "added");
  journal->release({gone, added});
  ASSERT_THAT(executor_->held, SizeIs(1));
  executor_->holdsWorkers = false;
  for (const auto& task : std::exchange(executor_->held, {})) task();
  EXPECT_LT(bytesInFolder().size(), 1000U);
  append(*journal, "later");
  journal.reset();
  EXPECT_THAT(left(), ElementsAre("kept", "added", "later"));
}

int descriptorOf(const std::filesystem::path& path) {
  for (int number = 3; number < 1000; ++number) {
    std::error_code failure;
    const auto name = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(number), failure);
    if (name == path) return number;
  }
  return -1;
}

TEST_F(FileEventJournalTest, writesItsRecordsAnewIfItsFileIsLost) {
  using Path = std::filesystem::path;
  const std::vector<std::function<void(const Path&)>> losses{
      [](const Path& file) { std::filesystem::remove(file); },
      [](const Path& file) { std::filesystem::resize_file(file, 40); },
      [](const Path& file) {
        std::filesystem::remove(file);
        std::ofstream(file) << "a host's file";
      },
      [](const Path& file) {
        std::filesystem::remove(file);
        std::filesystem::create_directories(file / "in the way");
      },
      [](const Path& file) {
        for (int number = 0; (number = descriptorOf(file)) >= 0;) dup2(::open("/dev/null", O_RDWR), number);
      }};
  for (std::size_t loss = 0; loss < losses.size(); ++loss) {
    SCOPED_TRACE(loss);
    auto journal = open();
    journal->prepare();
    const auto file = folder_ / files().at(0);
    append(*journal, "a");
    const auto released = append(*journal, "released");
    append(*journal, "b");
    losses[loss](file);
    journal->release({released});
    append(*journal, "c");
    {
      const ExplanationCapture log;
      adopt(*journal);
      adopt(*journal);
      EXPECT_THAT(log.lines(), Contains(HasSubstr("written anew")).Times(1));
    }
    append(*journal, "d");
    journal.reset();
    const ExplanationCapture log;
    EXPECT_THAT(left(), ElementsAre("a", "b", "c", "d"));
    for (const auto& name : files()) std::filesystem::remove_all(folder_ / name);
  }
}

// -- Threads and forks

TEST_F(FileEventJournalTest, takesRecordsFromManyThreadsWhileItsFileIsReplaced) {
  constexpr int threads = 4;
  constexpr int each = 3000;
  auto journal = openWithThreads();
  std::array<Texts, threads> kept;
  std::vector<std::thread> writers;
  for (int thread = 0; thread < threads; ++thread) {
    writers.emplace_back([&, thread] {
      for (int n = 0; n < each; ++n) {
        const auto content = std::to_string(thread) + "-" + std::to_string(n) + std::string(300, 'x');
        const auto position = append(*journal, content);
        if (n % 100 == 0) kept[static_cast<std::size_t>(thread)].push_back(content);
        if (n % 100 != 0) journal->release({position});
        if (n % 1000 == 0) journal->maintain([](const auto&) { ADD_FAILURE() << "nothing was left"; });
      }
    });
  }
  for (auto& writer : writers) writer.join();
  EXPECT_LT(std::filesystem::file_size(folder_ / files().at(0)), 3'000'000U);
  runTasks();
  journal.reset();
  runTasks();
  Texts expected;
  for (const auto& texts : kept) expected.insert(expected.end(), texts.begin(), texts.end());
  EXPECT_THAT(left(), ::testing::UnorderedElementsAreArray(expected));
}

class JournalForkTest : public FileEventJournalTest, public ::testing::WithParamInterface<pid_t (*)()> {};
INSTANTIATE_TEST_SUITE_P(, JournalForkTest, ::testing::Values(&fork, &_Fork));

TEST_P(JournalForkTest, givesAForkedChildAJournalOfItsOwn) {
  const auto journal = openWithThreads();
  append(*journal, "parent's");
  std::atomic<bool> isDone = false;
  // Holds the parent's lock at most forks.
  std::thread writer([&] {
    while (!isDone) journal->release({append(*journal, std::string(20'000, 'x'))});
  });
  constexpr int children = 20;
  for (int n = 0; n < children; ++n) {
    EXPECT_TRUE(hasSucceeded(forked(
        [&] {
          alarm(20);
          journal->release({1});
          journal->maintain([](const auto&) { _exit(2); });
          return append(*journal, "child's") != 0 && append(*journal, "again") != 0;
        },
        GetParam())));
  }
  isDone = true;
  writer.join();
  EXPECT_THAT(adopt(*open()), SizeIs(children));
}

TEST_P(JournalForkTest, leavesNoLockToAChildThatOutlivesIt) {
  std::array<int, 2> pipeEnds{};
  ASSERT_EQ(pipe(pipeEnds.data()), 0);
  const auto host = forked([&] {
    const auto journal = openWithThreads();
    append(*journal, "a");
    const auto child = GetParam()();
    while (child == 0) pause();
    if (write(pipeEnds[1], &child, sizeof(child)) == ssize_t{sizeof(child)}) kill(getpid(), SIGKILL);
    return false;
  });
  pid_t child = 0;
  ASSERT_EQ(read(pipeEnds[0], &child, sizeof(child)), ssize_t{sizeof(child)});
  waitpid(host, nullptr, 0);
  EXPECT_THAT(left(), ElementsAre("a"));
  kill(child, SIGKILL);
  close(pipeEnds[0]);
  close(pipeEnds[1]);
}

}  // namespace
}  // namespace orrelo::test
