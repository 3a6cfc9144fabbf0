#pragma once

#include "network/NetworkConfig.h"
#include "push/OrreloPush.h"

#include <memory>

namespace orrelo {

/// Builds the upload of push tokens and the handling of notifications.
class PushComponent {
 public:
  explicit PushComponent(const NetworkConfig& networkConfig);

  const std::shared_ptr<OrreloPush> orreloPush;
};

}  // namespace orrelo
