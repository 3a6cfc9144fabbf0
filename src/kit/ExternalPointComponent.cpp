#include "kit/ExternalPointComponent.h"

#include "rewards/externalpoint/ExternalPointRouter.h"

namespace orrelo {

ExternalPointComponent::ExternalPointComponent(const std::shared_ptr<FetchConfigUseCase>& configuration)
    : fetchConfigUseCase(configuration), router(std::make_shared<ExternalPointRouter>(configuration)) {}

}  // namespace orrelo
