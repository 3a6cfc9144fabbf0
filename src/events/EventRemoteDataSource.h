#pragma once

#include "events/Event.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <utility>

namespace orrelo {

/// The headers must include "Content-Type".
using EventNetworkConfig = NetworkConfig;

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

}  // namespace orrelo
