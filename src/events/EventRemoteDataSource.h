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

/// The headers have "Content-Type" added.
using EventNetworkConfig = NetworkConfig;
using BIEventNetworkConfig = NetworkConfig;

/// An event on the wire: one flat object of texts. The values come first; "event_id", "event_name",
/// "event_time" and, where there is a user, "user_id" take the place of values of these names.
struct EventRemoteDTO {
  explicit EventRemoteDTO(const Event& event);

  std::string id;
  std::optional<std::string> userId;
  std::string eventName;
  std::string eventTime;
  StringDictionary eventValues;

  void encode(JsonWriter& json) const;
};

/// POST "/event", one event a request.
class EventRemoteDataSource {
 public:
  EventRemoteDataSource(EventNetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient)
      : networkConfig_(std::move(networkConfig)), httpClient_(std::move(httpClient)) {}

  /// The same event once the service has taken it, whatever its reply says.
  reactive::Observable<Event> send(const Event& event) const;

 private:
  EventNetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
};

/// POST "/events", a list of events a request.
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
