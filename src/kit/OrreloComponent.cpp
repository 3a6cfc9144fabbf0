#include "kit/OrreloComponent.h"

#include "base/preconditionFailure.h"
#include "network/HttpHeaderGenerator.h"

#include <orrelo/Platform.h>

namespace orrelo {

OrreloComponent::OrreloComponent(const ORLConfig& config, const std::string& baseUrl,
                                 const std::string& storeUrl) {
  const auto& appKey = config.appKey();
  const auto userDefaults = Platform::current().userDefaults->suite(appKey);
  if (!userDefaults)
    preconditionFailure("The application key \"" + appKey + "\" names no suite of user defaults");

  const NetworkConfig networkConfig{baseUrl + "sdk/" + appKey, HttpHeaderGenerator(userDefaults).generate()};
  configComponent_ = std::make_unique<ConfigComponent>(userDefaults, networkConfig);
  pageComponent_ = std::make_unique<PageComponent>(configComponent_->fetchConfigUseCase);
  campaignComponent_ = std::make_unique<CampaignComponent>(
      configComponent_->fetchConfigUseCase, networkConfig, storeUrl, pageComponent_->pageRouter);
  eventComponent_ = std::make_unique<EventComponent>(networkConfig);
}

}  // namespace orrelo
