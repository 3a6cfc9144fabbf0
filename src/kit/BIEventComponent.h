#pragma once

#include "events/BIEventRepository.h"

#include <string>

namespace orrelo {

/// Wires the pipeline of the kit's own events, and starts its timer. It stands outside the tree.
class BIEventComponent {
 public:
  /// `baseUrl` ends in "/orreloservice/". Stops the process where the app key can name no suite.
  BIEventComponent(const std::string& appKey, const std::string& baseUrl);

  const SaveBIEventUseCase saveBIEventUseCase;
};

}  // namespace orrelo
