#include "platform/JournalSupport.h"
#include "platform/journal/JournalFormat.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>
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

using Positions = std::vector<EventJournal::Position>;
using Refusal = EventJournal::Refusal;
using Texts = std::vector<std::string>;

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
    const auto size = static_cast<rlim_t>(std::filesystem::file_size(onlyFile()));
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

}  // namespace
}  // namespace orrelo::test
