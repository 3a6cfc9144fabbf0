#pragma once

#include "events/SaveEventUseCase.h"
#include "network/NetworkConfig.h"

namespace orrelo {

/// Builds the pipeline of the host's events and starts its timer.
class EventComponent {
 public:
  explicit EventComponent(const NetworkConfig& networkConfig);

  const SaveEventUseCase saveEventUseCase;
};

}  // namespace orrelo
