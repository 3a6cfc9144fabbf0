#include "kit/PageComponent.h"

#include "navigation/PageRouterImpl.h"

namespace orrelo {

PageComponent::PageComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase)
    : pageRouter(std::make_shared<PageRouterImpl>()),
      useCase(ShowPageUseCaseImpl::create(fetchConfigUseCase, pageRouter)) {}

}  // namespace orrelo
