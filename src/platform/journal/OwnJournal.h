#pragma once

#include "platform/journal/JournalEnvironment.h"
#include "platform/journal/JournalFile.h"
#include "platform/journal/LiveRecords.h"
#include "platform/journal/SequenceRanges.h"

#include <orrelo/platform/EventJournal.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <variant>
#include <vector>

namespace orrelo {

/// The journal that one process writes: its current file, and in memory the records that are not released,
/// with which a new file can take the place of the old one. Any thread, unless stated otherwise.
class OwnJournal final : public std::enable_shared_from_this<OwnJournal> {
 public:
  using Position = EventJournal::Position;
  using Record = EventJournal::Record;

  /// A forked child has no threads of the kit. Its journal writes on the calling thread alone and keeps no
  /// records in memory, since nothing releases them there.
  enum class Kind { ofProcess, ofForkedChild };

  OwnJournal(JournalEnvironment environment, Kind kind, Position firstPosition);

  void prepare();
  std::variant<Position, EventJournal::Refusal> append(const Record& record);
  /// Forgets the records and writes this. Returns the positions that it does not know. In a task of the
  /// executor.
  std::vector<Position> release(const std::vector<Position>& positions);
  /// Reserves `count` positions for records of other journals; returns the first one.
  Position reservePositions(std::size_t count);
  /// The size of the journals of other processes, which counts towards the limit.
  void setOthersSize(std::size_t size) { othersSize_ = size; }
  /// What this process has adopted.
  void setAdopted(std::size_t records, std::size_t bytes) {
    adoptedRecords_ = records;
    adoptedBytes_ = bytes;
  }
  /// Takes no lock, since `append` may wait for the disk.
  EventJournal::Usage usage() const;

  /// Replaces the file if it was removed, shrunk or replaced, or if all its records are released. Then calls
  /// `next` in a task of the executor with the name of the current file, which is empty if there is none.
  void maintain(std::function<void(const std::string& ownName)> next);

  /// Closes the file and leaves it to be adopted. The owner must call it, on a thread of the process.
  void close();

 private:
  using Lock = std::unique_lock<std::mutex>;
  using FilePtr = std::shared_ptr<JournalFile>;
  using Records = std::vector<std::pair<Position, Record>>;
  enum class Renewal { ifDue, ifReleased, always };

  bool acquireFile(Lock& lock);

  void writeReleases(const FilePtr& file);
  bool isRenewalDue(Renewal renewal) const;
  void renew(Renewal renewal);
  static bool fill(JournalFile& file, const Records& records);
  void replaceBy(const FilePtr& next, const Records& written);
  std::string changesSince(const Records& written, std::uint64_t seed) const;
  void examine(const FilePtr& file, bool hasWriter);

  const JournalEnvironment environment_;
  const Kind kind_;
  std::atomic<std::size_t> othersSize_ = 0;
  std::atomic<std::size_t> adoptedRecords_ = 0;
  std::atomic<std::size_t> adoptedBytes_ = 0;

  std::mutex mutex_;
  std::condition_variable created_;
  FilePtr file_;
  bool isCreating_ = false;
  /// No file is made before this moment, after one could not be made.
  std::chrono::microseconds nextCreation_{0};
  Position last_;
  LiveRecords live_;
  /// Written under the lock only.
  std::atomic<std::size_t> liveSize_ = 0;
  std::atomic<std::size_t> liveCount_ = 0;
  bool isRenewing_ = false;
  /// A renewal has failed; the next one is tried by `maintain`.
  bool isRenewalRefused_ = false;

  /// Released, but not yet in the file. Used only in tasks of the executor.
  SequenceRanges unwritten_;
};

}  // namespace orrelo
