#pragma once

#include "platform/threads/KitThread.h"

#include <orrelo/platform/EventJournal.h>

#include <atomic>
#include <cstddef>
#include <mutex>
#include <optional>

namespace orrelo {

/// Accounts for the events that the journal has refused and that wait in memory alone. While there are any,
/// the exit of the process is delayed. Any thread.
class UnwrittenEvents {
 public:
  /// In bytes, of all events together.
  static constexpr std::size_t maximumSize = std::size_t{16} * 1024 * 1024;

  /// Reserves memory for an event; false if there is no room. Logs a line for an event without room, and for
  /// the first one of each kind of refusal.
  bool reserve(std::size_t size, EventJournal::Refusal refusal);
  /// `size` must have been reserved.
  void release(std::size_t size);
  /// The journal has taken an event, so that its next refusal is logged again.
  void journalHasAccepted();
  /// The reserved bytes.
  std::size_t size() {
    const std::lock_guard lock(mutex_);
    return size_;
  }

 private:
  std::mutex mutex_;
  std::size_t size_ = 0;
  std::optional<ExitBlocker> exitBlocker_;
  std::optional<EventJournal::Refusal> reported_;
  /// Whether `reported_` has a value; read without the lock.
  std::atomic<bool> hasReported_ = false;
};

}  // namespace orrelo
