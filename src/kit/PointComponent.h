#pragma once

#include "config/FetchConfigUseCase.h"
#include "network/NetworkConfig.h"
#include "rewards/point/FetchPointUnitUseCase.h"
#include "rewards/point/FetchPointUseCase.h"
#include "ui/Router.h"

#include <memory>

namespace orrelo {

/// Builds the point system and its screen.
class PointComponent {
 public:
  PointComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                 const NetworkConfig& networkConfig);

  const std::shared_ptr<FetchPointUseCase> fetchPointUseCase;
  const std::shared_ptr<FetchPointUnitUseCase> fetchPointUnitUseCase;
  const std::shared_ptr<Router> router;

 private:
  PointComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                 const std::shared_ptr<PointRepository>& repository);
};

}  // namespace orrelo
