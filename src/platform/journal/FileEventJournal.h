#pragma once

#include "platform/journal/OwnJournal.h"
#include "platform/posix/ForkedChild.h"

#include <orrelo/platform/EventJournal.h>

#include <atomic>
#include <memory>
#include <variant>
#include <vector>

namespace orrelo {

class LeftJournals;

/// A journal in files of the data folder, one for each process.
class FileEventJournal final : public EventJournal {
 public:
  explicit FileEventJournal(JournalEnvironment environment);
  /// Leaves the files to be adopted, as the end of the process does.
  ~FileEventJournal() override;
  FileEventJournal(const FileEventJournal&) = delete;
  FileEventJournal& operator=(const FileEventJournal&) = delete;

  void prepare() override;
  std::variant<Position, Refusal> append(const Record& record) override;
  /// Does nothing in a forked child, as `maintain`.
  void release(std::vector<Position> positions) override;
  void maintain(Adopter adopt) override;
  Usage usage() const override { return owner_.isParent() ? Usage() : own_->usage(); }

 private:
  struct Child;
  struct Releases;

  OwnJournal& current();

  const JournalEnvironment environment_;
  /// A host may fork after it has made the platform and initialise the kit in the child.
  OwnerProcess owner_;
  const std::shared_ptr<OwnJournal> own_;
  const std::shared_ptr<LeftJournals> left_;
  const std::shared_ptr<Releases> releases_;
  /// The journal of this process if it was forked from the owner.
  std::atomic<Child*> child_ = nullptr;
};

}  // namespace orrelo
