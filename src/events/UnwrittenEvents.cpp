#include "events/UnwrittenEvents.h"

#include "base/explain.h"

#include <orrelo/Platform.h>

#include <string>
#include <utility>

namespace orrelo {
namespace {

std::string reasonOf(EventJournal::Refusal refusal) {
  switch (refusal) {
    case EventJournal::Refusal::tooLarge:
      return "An event is too large for the journal";
    case EventJournal::Refusal::full:
      return "The journal of events is full";
    case EventJournal::Refusal::unwritable:
      break;
  }
  return "The journal of events cannot be written in " + Platform::current().directories->data().string();
}

}  // namespace

bool UnwrittenEvents::reserve(std::size_t size, EventJournal::Refusal refusal) {
  bool hasRoom = false;
  bool isNew = false;
  {
    const std::lock_guard lock(mutex_);
    hasRoom = size_ + size <= maximumSize;
    if (hasRoom) size_ += size;
    if (hasRoom && !exitBlocker_) exitBlocker_.emplace();
    isNew = std::exchange(reported_, refusal) != refusal;
    hasReported_ = true;
  }
  if (hasRoom && isNew) {
    explain(ExplanationLevel::warning, [&] {
      return reasonOf(refusal) +
             ": events wait in memory alone until they are stored. A process that is killed "
             "before that loses them.";
    });
  }
  return hasRoom;
}

void UnwrittenEvents::release(std::size_t size) {
  const std::lock_guard lock(mutex_);
  size_ -= size;
  if (size_ == 0) exitBlocker_.reset();
}

void UnwrittenEvents::journalHasAccepted() {
  if (!hasReported_.load(std::memory_order_relaxed)) return;
  const std::lock_guard lock(mutex_);
  reported_.reset();
  hasReported_ = false;
}

}  // namespace orrelo
