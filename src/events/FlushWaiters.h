#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace orrelo {

/// Counts the events that are on their way to a store and tells waiters when all that were on their way at
/// some moment have arrived. Any thread.
class FlushWaiters {
 public:
  using Ticket = std::uint64_t;
  using Completion = std::function<void(bool)>;

  /// A ticket for an event that sets out. Takes no lock, since the host's thread calls it for each event.
  Ticket add() { return lastTicket_.fetch_add(1, std::memory_order_relaxed) + 1; }

  /// Ends the way of an event, once for each ticket, and calls the completions that have nothing left to wait
  /// for.
  void settle(Ticket ticket);

  struct Counts {
    std::uint64_t added;
    /// At most `added`.
    std::uint64_t settled;
  };
  Counts counts() {
    const std::lock_guard lock(mutex_);
    return {lastTicket_.load(std::memory_order_relaxed), settled_};
  }

  /// Waits until all events that are on their way now have arrived; false at the timeout. Must not be called
  /// on a thread of the kit.
  bool wait(std::chrono::milliseconds timeout);

  /// Calls `completion` once all events that are on their way now have arrived. Nullopt if there are none;
  /// the completion is dropped then.
  std::optional<std::size_t> add(Completion completion);
  /// False if the waiter's completion has been called or is about to be.
  bool cancel(std::size_t waiter);

 private:
  struct Waiter {
    Ticket last;
    Ticket remaining;
    Completion completion;
  };

  std::atomic<Ticket> lastTicket_ = 0;

  std::mutex mutex_;
  Ticket settled_ = 0;
  std::size_t lastWaiter_ = 0;
  std::map<std::size_t, Waiter> waiters_;
};

}  // namespace orrelo
