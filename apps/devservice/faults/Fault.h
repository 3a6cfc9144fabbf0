#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// A failure to inject into requests to the service. Requests to the admin paths are never affected.
///
/// Faults apply in the order in which they were added: a request gets the first one that matches it and is
/// not used up, and no other. So `{status 503, count 1}` followed by `{drop, count 1}` makes the first
/// request fail with 503 and the second lose its connection.
struct Fault {
  enum class Kind {
    /// Answers as usual after `delay`.
    delay,
    /// Answers with `status` (500 by default) and `body`.
    status,
    /// Closes the connection without a reply.
    drop,
    /// Announces the whole reply, sends half of it and closes the connection. The reply is `body`, or the
    /// usual reply if that is empty; the request is always processed.
    truncate,
    /// Holds the request until the fault is cleared (then answers as usual) or the service stops (then closes
    /// the connection).
    hang,
    /// Answers with the bytes of `body` and `status`, 200 by default.
    body,
    /// Answers with `location` and `status`, 302 by default.
    redirect,
  };

  Kind kind = Kind::status;
  /// Upper case; empty matches every method.
  std::string method = {};
  /// Matches the end of the path, without its query: "/event" matches `…/sdk/<appKey>/event` but not
  /// `…/events`. Empty matches every path.
  std::string pathSuffix = {};
  /// The number of requests it applies to. Unset, it applies to all until it is cleared.
  std::optional<int> count = {};
  /// The delay before the fault takes effect; `hang` ignores it.
  std::chrono::milliseconds delay{0};
  std::optional<int> status = {};
  /// Any bytes, sent as they are.
  std::string body = {};
  std::string contentType = "application/json";
  std::string location = {};
  /// Processes the request before failing its reply. With `drop` this simulates a lost reply: the events are
  /// stored, and a client that retries delivers them twice.
  bool carryOut = false;
};

/// A fault in the service's list, with its progress.
struct OrderedFault {
  std::uint64_t id = 0;
  Fault fault;
  /// The number of requests that it still applies to; unset if the fault has no count.
  std::optional<int> remaining;
  int applied = 0;
  /// The number of requests that it holds right now.
  int waiting = 0;
};

}  // namespace orrelo::devservice
