#pragma once

#include "config/FetchConfigUseCase.h"
#include "ui/Router.h"

#include <memory>

namespace orrelo {

/// Builds the exchange of points at an external service.
class ExternalPointComponent {
 public:
  explicit ExternalPointComponent(const std::shared_ptr<FetchConfigUseCase>& configuration);

  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
  const std::shared_ptr<Router> router;
};

}  // namespace orrelo
