#include "events/FlushWaiters.h"

#include <condition_variable>
#include <memory>

namespace orrelo {

void FlushWaiters::settle(Ticket ticket) {
  std::vector<Completion> reached;
  {
    const std::lock_guard lock(mutex_);
    ++settled_;
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
  for (const auto& completion : reached) completion(true);
}

bool FlushWaiters::wait(std::chrono::milliseconds timeout) {
  struct Arrival {
    std::mutex mutex;
    std::condition_variable changed;
    bool hasArrived = false;
  };
  const auto arrival = std::make_shared<Arrival>();
  const auto waiter = add([arrival](bool) {
    const std::lock_guard lock(arrival->mutex);
    arrival->hasArrived = true;
    arrival->changed.notify_all();
  });
  if (!waiter) return true;
  {
    std::unique_lock lock(arrival->mutex);
    if (arrival->changed.wait_for(lock, timeout, [&] { return arrival->hasArrived; })) return true;
  }
  cancel(*waiter);
  return false;
}

std::optional<std::size_t> FlushWaiters::add(Completion completion) {
  const std::lock_guard lock(mutex_);
  const auto last = lastTicket_.load(std::memory_order_relaxed);
  if (last == settled_) return std::nullopt;
  waiters_.emplace(++lastWaiter_, Waiter{last, last - settled_, std::move(completion)});
  return lastWaiter_;
}

bool FlushWaiters::cancel(std::size_t waiter) {
  const std::lock_guard lock(mutex_);
  return waiters_.erase(waiter) > 0;
}

}  // namespace orrelo
