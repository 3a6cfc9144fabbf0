#pragma once

#include "config/FetchConfigUseCase.h"
#include "navigation/ShowPageUseCase.h"
#include "ui/PageRouter.h"

#include <memory>

namespace orrelo {

/// Builds the navigation to pages.
class PageComponent {
 public:
  explicit PageComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase);

  const std::shared_ptr<PageRouter> pageRouter;
  const std::shared_ptr<ShowPageUseCase> useCase;
};

}  // namespace orrelo
