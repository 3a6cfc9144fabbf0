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

/// The faults ordered, and the requests that wait because of them. Thread-safe.
class FaultBook {
 public:
  /// A fault taken for one request.
  using Ticket = std::shared_ptr<OrderedFault>;
  enum class Outcome { elapsed, cleared, stopped, abandoned };

  std::uint64_t order(Fault fault);
  void clear();
  bool clear(std::uint64_t id);
  std::vector<OrderedFault> list() const;

  /// The fault that this request meets, counted as applied; null if there is none.
  Ticket take(const std::string& method, const std::string& path);
  /// Holds the calling thread for the fault's delay, or for a hang without end, unless the fault is cleared,
  /// the book is closed or the client has left.
  Outcome hold(const Ticket& ticket, const std::function<bool()>& clientLeft);

  /// Releases everyone who waits, and lets nobody wait until `open`.
  void close();
  void open();

 private:
  std::optional<Outcome> outcome(const Ticket& ticket, std::chrono::steady_clock::time_point deadline) const;
  void forgetUsedUp(const Ticket& ticket);

  mutable std::mutex mutex;
  std::condition_variable changed;
  std::list<Ticket> entries;
  std::uint64_t lastId = 0;
  bool closed = false;
};

}  // namespace orrelo::devservice
