#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// Something that shall go wrong with requests to the service. Requests to the admin paths are never touched.
///
/// Faults apply in the order in which they were ordered: a request meets the first one that matches it and is
/// not used up, and only that one. So `{status 503, count 1}` followed by `{drop, count 1}` makes the first
/// request fail with 503 and the second lose its connection.
struct Fault {
  enum class Kind {
    /// Answers as usual after `delay`.
    delay,
    /// Answers with `status` (500 unless told) and `body`.
    status,
    /// Closes the connection without a reply.
    drop,
    /// Announces the whole reply, sends half of it and closes. The reply is `body`, or the usual one if that
    /// is empty; the request is always carried out.
    truncate,
    /// Does not answer until the fault is cleared (then as usual) or the service stops (then never).
    hang,
    /// Answers with the bytes of `body` and `status` 200 unless told.
    body,
    /// Answers with `location` and `status` 302 unless told.
    redirect,
  };

  Kind kind = Kind::status;
  /// Upper case; empty matches every method.
  std::string method = {};
  /// Matches the end of the path, without its query: "/event" matches `…/sdk/<appKey>/event` but not
  /// `…/events`. Empty matches every path.
  std::string pathSuffix = {};
  /// How many requests it applies to; without it, all of them until it is cleared.
  std::optional<int> count = {};
  /// Waited before the fault takes effect, for every kind but `hang`.
  std::chrono::milliseconds delay{0};
  std::optional<int> status = {};
  /// Any bytes, sent as they are.
  std::string body = {};
  std::string contentType = "application/json";
  std::string location = {};
  /// Carries the request out before spoiling its reply. With `drop` this is a reply that got lost: the events
  /// are stored, and a client that sends them again delivers them twice.
  bool carryOut = false;
};

/// A fault as it stands in the service's list.
struct OrderedFault {
  std::uint64_t id = 0;
  Fault fault;
  /// Requests that it still applies to, if it was ordered with a count.
  std::optional<int> remaining;
  int applied = 0;
  /// Requests that it holds right now.
  int waiting = 0;
};

}  // namespace orrelo::devservice
