#include "faults/FaultBook.h"

#include <algorithm>

namespace orrelo::devservice {

namespace {

using Clock = std::chrono::steady_clock;

// The interval at which a held request checks that its client is still connected.
constexpr std::chrono::milliseconds clientCheckInterval{200};

bool matches(const OrderedFault& entry, const std::string& method, const std::string& path) {
  return entry.remaining != 0 && (entry.fault.method.empty() || entry.fault.method == method) &&
         path.ends_with(entry.fault.pathSuffix);
}

}  // namespace

std::uint64_t FaultBook::order(Fault fault) {
  const std::lock_guard lock(mutex_);
  auto entry = std::make_shared<OrderedFault>();
  entry->id = ++lastId_;
  entry->remaining = fault.count;
  entry->fault = std::move(fault);
  entries_.push_back(std::move(entry));
  return lastId_;
}

void FaultBook::clear() {
  const std::lock_guard lock(mutex_);
  entries_.clear();
  changed_.notify_all();
}

bool FaultBook::clear(std::uint64_t id) {
  const std::lock_guard lock(mutex_);
  const auto erased = std::erase_if(entries_, [id](const Ticket& entry) { return entry->id == id; });
  changed_.notify_all();
  return erased != 0;
}

std::vector<OrderedFault> FaultBook::list() const {
  const std::lock_guard lock(mutex_);
  std::vector<OrderedFault> result;
  for (const auto& entry : entries_) result.push_back(*entry);
  return result;
}

FaultBook::Ticket FaultBook::take(const std::string& method, const std::string& path) {
  const std::lock_guard lock(mutex_);
  const auto found =
      std::ranges::find_if(entries_, [&](const Ticket& entry) { return matches(*entry, method, path); });
  if (found == entries_.end()) return nullptr;
  Ticket ticket = *found;
  ++ticket->applied;
  if (ticket->remaining) --*ticket->remaining;
  // A used-up fault stays in the list while it holds requests, so that it can be seen and cleared.
  ++ticket->waiting;
  return ticket;
}

std::optional<FaultBook::Outcome> FaultBook::outcome(const Ticket& ticket, Clock::time_point deadline) const {
  if (closed_) return Outcome::stopped;
  if (std::ranges::find(entries_, ticket) == entries_.end()) return Outcome::cleared;
  if (ticket->fault.kind != Fault::Kind::hang && Clock::now() >= deadline) return Outcome::elapsed;
  return std::nullopt;
}

FaultBook::Outcome FaultBook::hold(const Ticket& ticket, const std::function<bool()>& clientLeft) {
  const auto deadline = Clock::now() + ticket->fault.delay;
  std::unique_lock lock(mutex_);
  std::optional<Outcome> result = outcome(ticket, deadline);
  while (!result) {
    auto wakeUp = Clock::now() + clientCheckInterval;
    if (ticket->fault.kind != Fault::Kind::hang) wakeUp = std::min(wakeUp, deadline);
    changed_.wait_until(lock, wakeUp);
    result = outcome(ticket, deadline);
    if (!result && clientLeft()) result = Outcome::abandoned;
  }
  --ticket->waiting;
  removeIfUsedUp(ticket);
  return *result;
}

void FaultBook::removeIfUsedUp(const Ticket& ticket) {
  if (ticket->remaining == 0 && ticket->waiting == 0) entries_.remove(ticket);
}

void FaultBook::close() {
  const std::lock_guard lock(mutex_);
  closed_ = true;
  changed_.notify_all();
}

void FaultBook::open() {
  const std::lock_guard lock(mutex_);
  closed_ = false;
}

}  // namespace orrelo::devservice
