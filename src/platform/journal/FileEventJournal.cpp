#include "platform/journal/FileEventJournal.h"

#include "platform/journal/LeftJournals.h"
#include "platform/posix/ForkedChild.h"

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

FileEventJournal::FileEventJournal(JournalEnvironment environment)
    : environment_(std::move(environment)),
      generation_(processGeneration()),
      own_(std::make_shared<OwnJournal>(environment_, OwnJournal::Kind::ofProcess,
                                        firstPosition(generation_))),
      left_(std::make_shared<LeftJournals>(environment_, own_)) {}

FileEventJournal::~FileEventJournal() {
  if (processGeneration() != generation_) return;
  own_->close();
  environment_.executor->post([left = left_] { left->close(); });
}

OwnJournal& FileEventJournal::current() {
  const auto generation = processGeneration();
  if (generation == generation_) return *own_;
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
  if (processGeneration() != generation_) return;
  auto others = own_->release(positions);
  if (others.empty()) return;
  environment_.executor->post([left = left_, others = std::move(others)] { left->release(others); });
}

void FileEventJournal::maintain(Adopter adopt) {
  if (processGeneration() != generation_) return;
  own_->maintain([left = left_, adopt = std::move(adopt)](const std::string& ownName) {
    left->takeOver(ownName, adopt);
  });
}

}  // namespace orrelo
