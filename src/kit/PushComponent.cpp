#include "kit/PushComponent.h"

#include "navigation/PageRouterImpl.h"

namespace orrelo {

PushComponent::PushComponent(const NetworkConfig& networkConfig)
    : orreloPush(std::make_shared<OrreloPush>(
          std::make_shared<PushTokenRepositoryImpl>(networkConfig),
          std::make_shared<PushRouter>(std::make_shared<PageRouterImpl>(), UserManager()))) {}

}  // namespace orrelo
