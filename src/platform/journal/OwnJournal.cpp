#include "platform/journal/OwnJournal.h"

#include "base/explain.h"
#include "platform/journal/JournalFormat.h"
#include "platform/journal/createJournalFile.h"
#include "platform/threads/KitThread.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <utility>

namespace orrelo {
namespace {

using namespace std::chrono_literals;
using Refusal = EventJournal::Refusal;

constexpr auto pauseAfterFailure = 1s;
/// A file whose records are all released is replaced at once if it is larger, else by `maintain`.
constexpr std::size_t maximumReleasedSize = std::size_t{128} * 1024;
constexpr std::size_t maximumMostlyReleasedSize = std::size_t{1024} * 1024;
constexpr std::size_t fillSize = std::size_t{256} * 1024;

}  // namespace

OwnJournal::OwnJournal(JournalEnvironment environment, Kind kind, Position firstPosition)
    : environment_(std::move(environment)), kind_(kind), last_(firstPosition) {}

void OwnJournal::prepare() {
  Lock lock(mutex_);
  acquireFile(lock);
}

std::variant<EventJournal::Position, Refusal> OwnJournal::append(const Record& record) {
  if (record.size() > EventJournal::maximumRecordSize) return Refusal::tooLarge;
  Lock lock(mutex_);
  if (!acquireFile(lock)) return Refusal::unwritable;
  if (liveSize_ + othersSize_ + record.size() > EventJournal::maximumLiveSize) return Refusal::full;
  const auto position = ++last_;
  journal::seal(record.data(), record.size(), file_->seed(), position, journal::RecordKind::event);
  if (!file_->append(record.view())) return Refusal::unwritable;
  if (kind_ == Kind::ofProcess) live_.add(position, record);
  liveSize_.store(liveSize_ + record.size(), std::memory_order_relaxed);
  liveCount_.store(live_.size(), std::memory_order_relaxed);
  return position;
}

OwnJournal::Position OwnJournal::reservePositions(std::size_t count) {
  const std::lock_guard lock(mutex_);
  return std::exchange(last_, last_ + count) + 1;
}

EventJournal::Usage OwnJournal::usage() const {
  return {liveCount_ + adoptedRecords_, liveSize_ + adoptedBytes_};
}

// -- Released records

std::vector<OwnJournal::Position> OwnJournal::release(const std::vector<Position>& positions) {
  // Callers of `append` wait for the lock, so that it is held for a few records at a time.
  constexpr std::size_t recordsAtATime = 64;
  std::vector<Position> unknown;
  std::array<Record, recordsAtATime> forgotten;  // destroyed without the lock
  for (auto rest = std::span(positions); !rest.empty();) {
    const auto part = rest.first(std::min(rest.size(), recordsAtATime));
    {
      const std::lock_guard lock(mutex_);
      for (std::size_t i = 0; i < part.size(); ++i) {
        forgotten[i] = live_.take(part[i]);
        liveSize_.store(liveSize_ - forgotten[i].size(), std::memory_order_relaxed);
      }
      liveCount_.store(live_.size(), std::memory_order_relaxed);
    }
    for (std::size_t i = 0; i < part.size(); ++i) {
      if (std::exchange(forgotten[i], {})) {
        unwritten_.add(part[i], part[i]);
      } else {
        unknown.push_back(part[i]);
      }
    }
    rest = rest.subspan(part.size());
  }
  FilePtr file;
  {
    const std::lock_guard lock(mutex_);
    file = file_;
  }
  if (file && unknown.size() < positions.size()) {
    writeReleases(file);
    renew(Renewal::ifDue);
  }
  return unknown;
}

void OwnJournal::writeReleases(const FilePtr& file) {
  const auto records = journal::releaseRecords(unwritten_, file->seed());
  // What cannot be written now is written with the next records that are released.
  if (records.empty() || file->appendByKeeper(records)) unwritten_.clear();
}

// -- The first file

bool OwnJournal::acquireFile(Lock& lock) {
  created_.wait(lock, [this] { return !isCreating_; });
  if (file_) return true;
  if (environment_.clock->steady() < nextCreation_) return false;
  isCreating_ = true;
  lock.unlock();
  FilePtr file;
  const auto maker = kind_ == Kind::ofProcess ? JournalFile::Maker::keeper : JournalFile::Maker::writer;
  runGuarded([&] { file = createJournalFile(environment_, maker); });
  lock.lock();
  isCreating_ = false;
  file_ = std::move(file);
  if (!file_) nextCreation_ = environment_.clock->steady() + pauseAfterFailure;
  created_.notify_all();
  return file_ != nullptr;
}

// -- A new file in the place of the old one

bool OwnJournal::isRenewalDue(Renewal renewal) const {
  if (!file_ || isRenewing_) return false;
  if (renewal == Renewal::always) return true;
  const auto size = file_->size();
  if (renewal == Renewal::ifReleased) return live_.empty() && size > sizeof(journal::FileHeader);
  if (isRenewalRefused_) return false;
  return live_.empty() ? size > maximumReleasedSize
                       : size > maximumMostlyReleasedSize && liveSize_ < size / 2;
}

void OwnJournal::renew(Renewal renewal) {
  Records records;
  {
    const std::lock_guard lock(mutex_);
    if (!isRenewalDue(renewal)) return;
    isRenewing_ = true;
    live_.visitAfter(
        0, [&](Position position, const Record& record) { records.emplace_back(position, record); });
  }
  const auto next =
      JournalFile::create(environment_.directories->data(), *environment_.random, JournalFile::Maker::keeper);
  if (next && fill(*next, records)) {
    environment_.workers->post(
        QualityOfService::utility,
        [self = shared_from_this(), next, records = std::move(records)] { self->replaceBy(next, records); });
    return;
  }
  if (next) discard(environment_, next);
  const std::lock_guard lock(mutex_);
  isRenewing_ = false;
  isRenewalRefused_ = true;
}

bool OwnJournal::fill(JournalFile& file, const Records& records) {
  std::string bytes;
  std::string sealed;
  for (const auto& [position, record] : records) {
    sealed = record.view();  // the record itself may be in use by other threads
    journal::seal(sealed.data(), sealed.size(), file.seed(), position, journal::RecordKind::event);
    bytes += sealed;
    if (bytes.size() < fillSize) continue;
    if (!file.fill(bytes)) return false;
    bytes.clear();
  }
  // The old file, which is removed soon, may have reached the disk long ago.
  return file.fill(bytes) && (records.empty() || file.sync());
}

void OwnJournal::replaceBy(const FilePtr& next, const Records& written) {
  bool isReady = next->openWriter();
  FilePtr old;
  {
    const std::lock_guard lock(mutex_);
    isRenewing_ = false;
    if (isReady) {
      const auto changes = changesSince(written, next->seed());
      isReady = file_ && (changes.empty() || next->append(changes)) && next->publish();
    }
    if (isReady) {
      old = std::exchange(file_, next);
    } else {
      isRenewalRefused_ = true;
    }
  }
  if (!isReady) return discard(environment_, next);
  old->remove();
  old->closeWriter();
  environment_.executor->post([old, next] {
    old->closeKeeper();
    next->reserve();  // a full disk may have room now
  });
}

/// The records that a file lacks which was filled with `written` before.
std::string OwnJournal::changesSince(const Records& written, std::uint64_t seed) const {
  SequenceRanges released;
  for (const auto& [position, record] : written) {
    if (!live_.contains(position)) released.add(position, position);
  }
  auto changes = journal::releaseRecords(released, seed);
  std::string sealed;
  live_.visitAfter(written.empty() ? 0 : written.back().first, [&](Position position, const Record& record) {
    sealed = record.view();
    journal::seal(sealed.data(), sealed.size(), seed, position, journal::RecordKind::event);
    changes += sealed;
  });
  return changes;
}

void OwnJournal::maintain(std::function<void(const std::string& ownName)> next) {
  // The writer can be examined only on a thread of the process, the rest only in a task of the executor.
  environment_.workers->post(QualityOfService::utility, [self = shared_from_this(), next = std::move(next)] {
    FilePtr file;
    bool hasWriter = false;
    {
      const std::lock_guard lock(self->mutex_);
      file = self->file_;
      hasWriter = file && file->hasWriter();
      self->isRenewalRefused_ = false;
    }
    self->environment_.executor->post([self, file, hasWriter, next] {
      if (file) self->examine(file, hasWriter);
      next(file ? file->name() : "");
    });
  });
}

void OwnJournal::examine(const FilePtr& file, bool hasWriter) {
  const bool isUsable = hasWriter && file->hasKeeper() && file->isWhole();
  writeReleases(file);
  {
    const std::lock_guard lock(mutex_);
    if (file != file_) return;  // a new one has just taken its place
  }
  if (!isUsable) {
    explain(ExplanationLevel::warning,
            "The journal of events was removed, changed or closed by another program and is written anew: " +
                file->path().string());
  }
  // A file that was made while the stores were busy has a lock that forked children hold, too.
  const bool isInherited = file->maker() == JournalFile::Maker::writer;
  renew(isUsable && !isInherited ? Renewal::ifReleased : Renewal::always);
}

void OwnJournal::close() {
  FilePtr file;
  {
    const std::lock_guard lock(mutex_);
    file = std::exchange(file_, nullptr);
  }
  if (!file) return;
  file->closeWriter();
  environment_.executor->post([file] { file->closeKeeper(); });
}

}  // namespace orrelo
