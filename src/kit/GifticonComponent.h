#pragma once

#include "config/FetchConfigUseCase.h"
#include "network/NetworkConfig.h"
#include "ui/Router.h"

#include <memory>

namespace orrelo {

/// Builds the vouchers and their screen.
class GifticonComponent {
 public:
  GifticonComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                    const NetworkConfig& networkConfig);

  const std::shared_ptr<Router> router;
};

}  // namespace orrelo
