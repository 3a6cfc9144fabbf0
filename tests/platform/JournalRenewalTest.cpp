#include "platform/JournalSupport.h"
#include "platform/journal/JournalFormat.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace orrelo::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using Positions = std::vector<EventJournal::Position>;
using Texts = std::vector<std::string>;

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
  runTasks();
  const auto isShort = [&] {
    std::error_code gone;
    return std::filesystem::file_size(folder_ / files().at(0), gone) < 3'000'000U;
  };
  while (!isShort()) std::this_thread::yield();  // a worker replaces the file after the last release
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
    while (!isDone) {
      for (int i = 0; i < 50; ++i) journal->release({append(*journal, std::string(20'000, 'x'))});
      runTasks();  // or else the appends overtake the releases until the journal is full
    }
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
