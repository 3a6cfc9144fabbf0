#pragma once

#include "config/Config.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"

#include <orrelo/UserDefaults.h>

#include <memory>
#include <optional>

namespace orrelo {

using ConfigNetworkConfig = NetworkConfig;

/// Stores a copy of the configuration on the device, in the application's suite of user defaults.
class ConfigLocalDataSource {
 public:
  explicit ConfigLocalDataSource(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  /// Returns nullopt if there is no valid copy.
  std::optional<Config> load() const;
  void save(const Config& config) const;

 private:
  std::shared_ptr<UserDefaults> userDefaults_;
};

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
