#pragma once

#include "faults/Fault.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// The list of faults, and the requests that they hold. Thread-safe.
class FaultBook {
 public:
  /// A fault taken for one request.
  using Ticket = std::shared_ptr<OrderedFault>;
  enum class Outcome { elapsed, cleared, stopped, abandoned };

  std::uint64_t order(Fault fault);
  void clear();
  bool clear(std::uint64_t id);
  std::vector<OrderedFault> list() const;

  /// Takes the fault that applies to this request and counts it as applied; null if there is none. The ticket
  /// must be passed to `hold` once.
  Ticket take(const std::string& method, const std::string& path);
  /// Blocks the calling thread for the fault's delay (for `hang`, without a limit) unless the fault is
  /// cleared, the book is closed or the client has left.
  Outcome hold(const Ticket& ticket, const std::function<bool()>& clientLeft);

  /// Releases all blocked threads. `hold` does not block again until `open`.
  void close();
  void open();

 private:
  std::optional<Outcome> outcome(const Ticket& ticket, std::chrono::steady_clock::time_point deadline) const;
  void removeIfUsedUp(const Ticket& ticket);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::list<Ticket> entries_;
  std::uint64_t lastId_ = 0;
  bool closed_ = false;
};

}  // namespace orrelo::devservice
