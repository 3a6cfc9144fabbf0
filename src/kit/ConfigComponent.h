#pragma once

#include "config/ConfigRemoteDataSource.h"
#include "config/FetchConfigUseCase.h"
#include "network/NetworkConfig.h"

#include <orrelo/UserDefaults.h>

#include <memory>
#include <string>

namespace orrelo {

/// Builds the configuration feature and starts its first fetch.
class ConfigComponent {
 public:
  ConfigComponent(std::shared_ptr<UserDefaults> userDefaults, const ConfigNetworkConfig& networkConfig);

  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
};

}  // namespace orrelo
