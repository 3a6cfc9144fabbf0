#pragma once

#include "events/Event.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <utility>
#include <vector>

namespace orrelo {

/// The headers must include "Content-Type".
using BIEventNetworkConfig = NetworkConfig;

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
