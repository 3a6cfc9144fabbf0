#pragma once

#include "platform/StoreSupport.h"
#include "platform/journal/FileEventJournal.h"
#include "platform/posix/SystemRandom.h"
#include "platform/store/Files.h"
#include "platform/threads/PosixWorkerPool.h"

#include <functional>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace orrelo::test {

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

inline EventJournal::Record recordOf(const std::string& content) {
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
  static std::optional<EventJournal::Refusal> refusal(EventJournal& journal, const std::string& content) {
    const auto result = journal.append(recordOf(content));
    return result.index() == 0 ? std::nullopt : std::optional(std::get<EventJournal::Refusal>(result));
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
  static std::vector<std::string> textsOf(const Adopted& adopted) {
    std::vector<std::string> texts;
    for (const auto& journal : adopted) {
      for (const auto& [position, content] : journal) texts.push_back(content);
    }
    return texts;
  }
  /// What a process finds that starts now and ends without releasing anything.
  std::vector<std::string> left() { return textsOf(adopt(*open())); }

  std::vector<std::string> files() const { return fileNames(folder_.path()); }
  std::filesystem::path onlyFile() const {
    EXPECT_EQ(files().size(), 1U);
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
inline pid_t forked(const std::function<bool()>& body, pid_t (*make)() = &fork) {
  const auto child = make();
  if (child == 0) _exit(body() ? 0 : 1);
  return child;
}

inline bool hasSucceeded(pid_t child) {
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace orrelo::test
