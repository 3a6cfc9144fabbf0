#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::devservice {

using TimePoint = std::chrono::time_point<std::chrono::system_clock, std::chrono::milliseconds>;

/// One event, however often it was delivered. All fields but `deliveries` and `lastArrival` are those of its
/// first delivery.
struct ReceivedEvent {
  std::string eventId;
  std::string appKey;
  std::optional<std::string> userId;
  std::string eventName;
  std::string eventTime;
  /// "/event" or "/events".
  std::string path;
  /// The whole flat object, with "event_id", "event_name", "event_time" and "user_id".
  std::map<std::string, std::string> values;
  /// The identity headers that came with it, such as "Kelso-UUID", "sdk_version" and "locale".
  std::map<std::string, std::string> headers;
  std::int64_t deliveries = 0;
  TimePoint firstArrival;
  TimePoint lastArrival;
};

/// A push token of one user of one app.
struct SavedToken {
  std::string appKey;
  std::string userId;
  std::string token;
  std::int64_t saves = 0;
  TimePoint firstSaved;
  TimePoint lastSaved;
};

/// A user known from an event or a token.
struct KnownUser {
  std::string appKey;
  std::string userId;
  std::int64_t events = 0;
  TimePoint firstSeen;
  TimePoint lastSeen;
};

/// A request as received, recorded before a fault or a route handled it.
struct RequestRecord {
  std::string method;
  /// Decoded, without the query.
  std::string path;
  /// The target as written in the request line.
  std::string target;
  std::vector<std::pair<std::string, std::string>> headers;
  std::size_t bodySize = 0;
  TimePoint arrival;

  /// The first header of this name, compared case-insensitively.
  std::optional<std::string> header(const std::string& name) const;
};

}  // namespace orrelo::devservice
