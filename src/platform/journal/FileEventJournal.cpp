#include "platform/journal/FileEventJournal.h"

#include "platform/journal/LeftJournals.h"
#include "platform/posix/ForkedChild.h"

#include <mutex>
#include <utility>

namespace orrelo {
namespace {

/// The first position of a process, different from those that a forked child has from its parent.
EventJournal::Position firstPosition(std::uint64_t generation) {
  return generation << 40;
}

}  // namespace

struct FileEventJournal::Child {
  std::uint64_t generation;
  std::shared_ptr<OwnJournal> journal;
};

/// Collects the released positions of many events for one task, so that the callers of `append` seldom wait
/// for a release.
struct FileEventJournal::Releases {
  std::mutex mutex;
  std::vector<Position> positions;
  bool isPosted = false;
};

FileEventJournal::FileEventJournal(JournalEnvironment environment)
    : environment_(std::move(environment)),
      own_(std::make_shared<OwnJournal>(environment_, OwnJournal::Kind::ofProcess,
                                        firstPosition(processGeneration()))),
      left_(std::make_shared<LeftJournals>(environment_, own_)),
      releases_(std::make_shared<Releases>()) {}

FileEventJournal::~FileEventJournal() {
  if (owner_.isParent()) return;
  own_->close();
  environment_.executor->post([left = left_] { left->close(); });
}

OwnJournal& FileEventJournal::current() {
  if (owner_.claim()) return *own_;
  const auto generation = processGeneration();
  // Another thread may have held any lock of the parent at the fork, so the child starts without one. What a
  // child has from a parent that was a child itself is never freed.
  auto* child = child_.load(std::memory_order_acquire);
  if (child != nullptr && child->generation == generation) return *child->journal;
  auto* const made = new Child{
      generation,
      std::make_shared<OwnJournal>(environment_, OwnJournal::Kind::ofForkedChild, firstPosition(generation))};
  if (child_.compare_exchange_strong(child, made)) return *made->journal;
  delete made;
  return *child->journal;
}

void FileEventJournal::prepare() {
  current().prepare();
}

std::variant<EventJournal::Position, EventJournal::Refusal> FileEventJournal::append(const Record& record) {
  return current().append(record);
}

void FileEventJournal::release(std::vector<Position> positions) {
  if (owner_.isParent()) return;
  {
    const std::lock_guard lock(releases_->mutex);
    releases_->positions.insert(releases_->positions.end(), positions.begin(), positions.end());
    if (std::exchange(releases_->isPosted, true)) return;
  }
  environment_.executor->post([releases = releases_, own = own_, left = left_] {
    std::vector<Position> released;
    {
      const std::lock_guard lock(releases->mutex);
      released.swap(releases->positions);
      releases->isPosted = false;
    }
    const auto others = own->release(released);
    if (!others.empty()) left->release(others);
  });
}

void FileEventJournal::maintain(Adopter adopt) {
  if (!owner_.claim()) return;
  own_->maintain([left = left_, adopt = std::move(adopt)](const std::string& ownName) {
    left->takeOver(ownName, adopt);
  });
}

}  // namespace orrelo
