#pragma once

#include "events/SaveBIEventUseCase.h"

#include <string>

namespace orrelo {

/// Builds the pipeline of the kit's own analytics events and starts its timer. It is not part of the
/// component tree.
class BIEventComponent {
 public:
  /// `baseUrl` ends in "/orreloservice/". Stops the process if the app key is not a valid suite name.
  BIEventComponent(const std::string& appKey, const std::string& baseUrl);

  const SaveBIEventUseCase saveBIEventUseCase;
};

}  // namespace orrelo
