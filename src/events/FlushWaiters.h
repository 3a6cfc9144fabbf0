#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace orrelo {

/// Counts the events that are on their way and tells waiters when all that were on their way at some moment
/// have arrived. Not thread-safe.
class FlushWaiters {
 public:
  using Ticket = std::uint64_t;
  using Completion = std::function<void(bool)>;

  /// A ticket for an event that sets out.
  Ticket add() {
    ++unsettled_;
    return ++lastTicket_;
  }

  /// Ends the way of an event, once for each ticket. Appends the completions that have nothing left to wait
  /// for.
  void settle(Ticket ticket, std::vector<Completion>& reached) {
    if (unsettled_ > 0) --unsettled_;
    for (auto each = waiters_.begin(); each != waiters_.end();) {
      auto& waiter = each->second;
      if (ticket <= waiter.last && --waiter.remaining == 0) {
        reached.push_back(std::move(waiter.completion));
        each = waiters_.erase(each);
      } else {
        ++each;
      }
    }
  }

  /// Calls `completion` once all events that are on their way now have arrived. Nullopt if there are none;
  /// the completion is dropped then.
  std::optional<std::size_t> wait(Completion completion) {
    if (unsettled_ == 0) return std::nullopt;
    waiters_.emplace(++lastWaiter_, Waiter{lastTicket_, unsettled_, std::move(completion)});
    return lastWaiter_;
  }
  /// False if the waiter's completion has been handed out.
  bool cancel(std::size_t waiter) { return waiters_.erase(waiter) > 0; }

 private:
  struct Waiter {
    Ticket last;
    std::size_t remaining;
    Completion completion;
  };

  Ticket lastTicket_ = 0;
  std::size_t unsettled_ = 0;
  std::size_t lastWaiter_ = 0;
  std::map<std::size_t, Waiter> waiters_;
};

}  // namespace orrelo
