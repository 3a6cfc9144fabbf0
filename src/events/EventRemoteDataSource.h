#pragma once

#include "base/JsonWriter.h"
#include "events/Event.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// The headers must include "Content-Type".
using EventNetworkConfig = NetworkConfig;
using BIEventNetworkConfig = NetworkConfig;

/// An event as it is sent: one flat object of texts. It starts with the values; "event_id", "event_name",
/// "event_time" and, if there is a user, "user_id" replace values with these names.
struct EventRemoteDTO {
  explicit EventRemoteDTO(const Event& event);

  std::string id;
  std::optional<std::string> userId;
  std::string eventName;
  std::string eventTime;
  StringDictionary eventValues;

  void encode(JsonWriter& json) const;
};

/// Sends one event per request with POST "/event".
class EventRemoteDataSource {
 public:
  EventRemoteDataSource(EventNetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient)
      : networkConfig_(std::move(networkConfig)), httpClient_(std::move(httpClient)) {}

  /// Emits the same event after a successful reply; the reply's content is ignored.
  reactive::Observable<Event> send(const Event& event) const;

 private:
  EventNetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
};

/// Sends a list of events per request with POST "/events".
class BIEventRemoteDataSource {
 public:
  BIEventRemoteDataSource(BIEventNetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient)
      : networkConfig_(std::move(networkConfig)), httpClient_(std::move(httpClient)) {}

  reactive::Observable<reactive::Unit> send(const std::vector<BIEvent>& events) const;

 private:
  BIEventNetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
};

}  // namespace orrelo
