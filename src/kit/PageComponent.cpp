#include "kit/PageComponent.h"

#include "kit/InitializedOrrelo.h"
#include "navigation/PageRouterImpl.h"

#include <orrelo/Orrelo.h>

namespace orrelo {
namespace {

Destinations destinations() {
  return {.showCampaign = [](const auto& id, const auto& with) { Orrelo::showCampaign(id, with); },
          .showHome = [](const auto& with) { Orrelo::showHome(with); },
          .isInitialized = &InitializedOrrelo::hasCurrent,
          // Referral, points, gifticons and their exchange have no screens yet.
          .router = [](Page::Fixed) { return nullptr; }};
}

}  // namespace

PageComponent::PageComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase)
    : pageRouter(std::make_shared<PageRouterImpl>(destinations())),
      useCase(ShowPageUseCaseImpl::create(fetchConfigUseCase, pageRouter)) {}

}  // namespace orrelo
