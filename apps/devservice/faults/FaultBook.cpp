#include "faults/FaultBook.h"

#include <algorithm>

namespace orrelo::devservice {

namespace {

using Clock = std::chrono::steady_clock;

// How soon a held request notices that its client has gone away.
constexpr std::chrono::milliseconds clientCheckInterval{200};

bool matches(const OrderedFault& entry, const std::string& method, const std::string& path) {
  return entry.remaining != 0 && (entry.fault.method.empty() || entry.fault.method == method) &&
         path.ends_with(entry.fault.pathSuffix);
}

}  // namespace

std::uint64_t FaultBook::order(Fault fault) {
  const std::lock_guard lock(mutex);
  auto entry = std::make_shared<OrderedFault>();
  entry->id = ++lastId;
  entry->remaining = fault.count;
  entry->fault = std::move(fault);
  entries.push_back(std::move(entry));
  return lastId;
}

void FaultBook::clear() {
  const std::lock_guard lock(mutex);
  entries.clear();
  changed.notify_all();
}

bool FaultBook::clear(std::uint64_t id) {
  const std::lock_guard lock(mutex);
  const auto erased = std::erase_if(entries, [id](const Ticket& entry) { return entry->id == id; });
  changed.notify_all();
  return erased != 0;
}

std::vector<OrderedFault> FaultBook::list() const {
  const std::lock_guard lock(mutex);
  std::vector<OrderedFault> result;
  for (const auto& entry : entries) result.push_back(*entry);
  return result;
}

FaultBook::Ticket FaultBook::take(const std::string& method, const std::string& path) {
  const std::lock_guard lock(mutex);
  const auto found =
      std::ranges::find_if(entries, [&](const Ticket& entry) { return matches(*entry, method, path); });
  if (found == entries.end()) return nullptr;
  Ticket ticket = *found;
  ++ticket->applied;
  if (ticket->remaining) --*ticket->remaining;
  // A used-up fault stays in the list while it holds requests, so that it can be cleared and seen.
  ++ticket->waiting;
  return ticket;
}

std::optional<FaultBook::Outcome> FaultBook::outcome(const Ticket& ticket, Clock::time_point deadline) const {
  if (closed) return Outcome::stopped;
  if (std::ranges::find(entries, ticket) == entries.end()) return Outcome::cleared;
  if (ticket->fault.kind != Fault::Kind::hang && Clock::now() >= deadline) return Outcome::elapsed;
  return std::nullopt;
}

FaultBook::Outcome FaultBook::hold(const Ticket& ticket, const std::function<bool()>& clientLeft) {
  const auto deadline = Clock::now() + ticket->fault.delay;
  std::unique_lock lock(mutex);
  std::optional<Outcome> result = outcome(ticket, deadline);
  while (!result) {
    auto wakeUp = Clock::now() + clientCheckInterval;
    if (ticket->fault.kind != Fault::Kind::hang) wakeUp = std::min(wakeUp, deadline);
    changed.wait_until(lock, wakeUp);
    result = outcome(ticket, deadline);
    if (!result && clientLeft()) result = Outcome::abandoned;
  }
  --ticket->waiting;
  forgetUsedUp(ticket);
  return *result;
}

void FaultBook::forgetUsedUp(const Ticket& ticket) {
  if (ticket->remaining == 0 && ticket->waiting == 0) entries.remove(ticket);
}

void FaultBook::close() {
  const std::lock_guard lock(mutex);
  closed = true;
  changed.notify_all();
}

void FaultBook::open() {
  const std::lock_guard lock(mutex);
  closed = false;
}

}  // namespace orrelo::devservice
