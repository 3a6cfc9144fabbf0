#pragma once

#include "network/NetworkConfig.h"

namespace orrelo {

using PushNetworkConfig = NetworkConfig;

}  // namespace orrelo
