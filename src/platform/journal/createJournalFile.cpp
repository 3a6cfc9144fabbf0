#include "platform/journal/createJournalFile.h"

#include "platform/threads/KitThread.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

using FilePtr = std::shared_ptr<JournalFile>;
using Maker = JournalFile::Maker;

constexpr std::chrono::milliseconds maximumWait{50};

/// Hands a new file from the executor to a thread that waits for it.
struct Creation {
  std::mutex mutex;
  std::condition_variable changed;
  std::shared_ptr<JournalFile> file;
  bool isDone = false;
  bool isAbandoned = false;
};

FilePtr createOnExecutor(const JournalEnvironment& environment) {
  // A worker must exist before the executor posts to the pool, since no thread can be started there.
  environment.workers->post(QualityOfService::background, [] {});
  const auto creation = std::make_shared<Creation>();
  environment.executor->post([environment, creation] {
    std::unique_lock lock(creation->mutex);
    if (creation->isAbandoned) return;
    lock.unlock();
    auto file = createTemporaryJournal(environment, Maker::keeper);
    lock.lock();
    creation->isDone = true;
    creation->file = file;
    creation->changed.notify_one();
    if (creation->isAbandoned && file) discard(environment, file);
  });
  std::unique_lock lock(creation->mutex);
  if (creation->changed.wait_for(lock, maximumWait, [&] { return creation->isDone; })) {
    return std::move(creation->file);
  }
  // The stores are busy. A forked child inherits the lock until the next renewal, within a minute.
  creation->isAbandoned = true;
  lock.unlock();
  return createTemporaryJournal(environment, Maker::writer);
}

}  // namespace

FilePtr createTemporaryJournal(const JournalEnvironment& environment, Maker maker) {
  return JournalFile::create(environment.directories->data(), *environment.random, maker);
}

FilePtr createJournalFile(const JournalEnvironment& environment, Maker maker) {
  // An exiting process accepts no tasks.
  const bool usesExecutor = maker == Maker::keeper && !isExiting();
  auto file =
      usesExecutor ? createOnExecutor(environment) : createTemporaryJournal(environment, Maker::writer);
  if (!file || (file->openWriter() && file->publish())) return file;
  discard(environment, file);
  return nullptr;
}

void discard(const JournalEnvironment& environment, const FilePtr& file) {
  file->remove();
  file->closeWriter();
  // A forked child must not touch the executor.
  if (file->maker() == Maker::writer) return;
  environment.executor->post([file] { file->closeKeeper(); });
}

}  // namespace orrelo
