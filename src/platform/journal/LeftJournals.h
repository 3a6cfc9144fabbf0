#pragma once

#include "platform/journal/JournalReader.h"
#include "platform/journal/OwnJournal.h"
#include "platform/journal/SequenceRanges.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orrelo {

/// The journals that ended processes have left, and those of the processes that live, which count towards the
/// limit. Used only in tasks of the executor; its descriptors stay open in that thread's table.
class LeftJournals final : public std::enable_shared_from_this<LeftJournals> {
 public:
  LeftJournals(JournalEnvironment environment, std::shared_ptr<OwnJournal> own);

  /// Looks at each journal but `ownName`, each in a task of its own, so that the stores take turns.
  void takeOver(const std::string& ownName, EventJournal::Adopter adopt);
  /// Releases adopted records; removes a journal when all of its records are released.
  void release(const std::vector<EventJournal::Position>& positions);
  /// Closes the journals and leaves them to be adopted again.
  void close();

 private:
  struct Journal {
    std::filesystem::path path;
    int descriptor = -1;
    std::size_t size = 0;
    std::uint64_t seed = 0;
    /// The sequence number of each record, by its position less the first one.
    /// nullopt once it is released.
    std::vector<std::optional<std::uint64_t>> sequences;
    std::size_t liveCount = 0;
    /// Released, but not yet in the file.
    SequenceRanges unwritten;
  };

  struct Pass;

  void step(const std::shared_ptr<Pass>& pass);
  void examine(const std::string& name, Pass& pass);
  void removeTemporary(const std::filesystem::path& path);
  std::optional<Journal> lock(const std::filesystem::path& path, std::size_t& othersSize);
  static std::optional<JournalContent> read(const Journal& journal, std::uint64_t seedOfName);
  void leaveForLaterVersion(const Journal& journal);
  void adopt(Journal journal, JournalContent content, const EventJournal::Adopter& adopt);
  bool remove(const Journal& journal);
  std::size_t adoptedSize() const;
  void updateSize();
  void note(const std::filesystem::path& path, const std::string& fault);

  const JournalEnvironment environment_;
  const std::shared_ptr<OwnJournal> own_;
  /// By the position of their first record.
  std::map<EventJournal::Position, Journal> adopted_;
  /// The size of the journals of other living processes.
  std::size_t othersSize_ = 0;
  /// The files about which a line was logged.
  std::set<std::filesystem::path> noted_;
};

}  // namespace orrelo
