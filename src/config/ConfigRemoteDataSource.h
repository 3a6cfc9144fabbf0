#pragma once

#include "config/Config.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <utility>

namespace orrelo {

using ConfigNetworkConfig = NetworkConfig;

/// Fetches the configuration with GET "/config".
class ConfigRemoteDataSource {
 public:
  ConfigRemoteDataSource(ConfigNetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient)
      : networkConfig_(std::move(networkConfig)), httpClient_(std::move(httpClient)) {}

  reactive::Observable<Config> fetch() const;

 private:
  ConfigNetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
};

}  // namespace orrelo
