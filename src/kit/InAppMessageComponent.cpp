#include "kit/InAppMessageComponent.h"

#include "network/HTTPClient.h"

#include <orrelo/Platform.h>

namespace orrelo {
namespace {

std::shared_ptr<InAppMessageNavigator> makeNavigator(
    const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase, const NetworkConfig& networkConfig,
    const std::shared_ptr<CampaignNavigator>& campaignNavigator) {
  const auto scheduler =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive);
  const auto repository = std::make_shared<InAppMessageRepositoryImpl>(
      networkConfig, std::make_shared<HTTPClientImpl>(), scheduler);
  // One skip applies to all application keys of the device.
  const auto skipTimeCheckService =
      std::make_shared<InAppMessageSkipTimeCheckServiceImpl>(Platform::current().userDefaults->standard());
  const auto factory = std::make_shared<InAppMessageViewControllerFactoryImpl>(
      std::make_shared<InAppMessageViewModel>(skipTimeCheckService), campaignNavigator);
  return InAppMessageNavigator::create(skipTimeCheckService, fetchConfigUseCase,
                                       std::make_shared<FetchInAppMessagesUseCaseImpl>(repository), factory);
}

}  // namespace

InAppMessageComponent::InAppMessageComponent(const std::shared_ptr<FetchConfigUseCase>& fetchConfigUseCase,
                                             const NetworkConfig& networkConfig,
                                             const std::shared_ptr<CampaignNavigator>& campaignNavigator)
    : navigator(makeNavigator(fetchConfigUseCase, networkConfig, campaignNavigator)) {}

}  // namespace orrelo
