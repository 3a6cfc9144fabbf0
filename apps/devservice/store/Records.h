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

/// One event, however often it was delivered. Everything but the deliveries is as of its first arrival.
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

/// A request as it came in, noted before a fault or the service acted on it.
struct RequestRecord {
  std::string method;
  /// Decoded, without the query.
  std::string path;
  /// As written in the request line.
  std::string target;
  std::vector<std::pair<std::string, std::string>> headers;
  std::size_t bodySize = 0;
  TimePoint arrival;

  /// The first header of this name, in any case of letters.
  std::optional<std::string> header(const std::string& name) const;
};

}  // namespace orrelo::devservice
