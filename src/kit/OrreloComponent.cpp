#include "kit/OrreloComponent.h"

#include "kit/applicationSuite.h"
#include "network/HttpHeaderGenerator.h"

namespace orrelo {

OrreloComponent::OrreloComponent(const ORLConfig& config, const std::string& baseUrl,
                                 const std::string& storeUrl) {
  const auto& appKey = config.appKey();
  const auto userDefaults = applicationSuite(appKey);
  const NetworkConfig networkConfig{baseUrl + "sdk/" + appKey, HttpHeaderGenerator(userDefaults).generate()};
  configComponent_ = std::make_unique<ConfigComponent>(userDefaults, networkConfig);
  pointComponent_ = std::make_unique<PointComponent>(configComponent_->fetchConfigUseCase, networkConfig);
  externalPointComponent_ = std::make_unique<ExternalPointComponent>(configComponent_->fetchConfigUseCase);
  gifticonComponent_ =
      std::make_unique<GifticonComponent>(configComponent_->fetchConfigUseCase, networkConfig);
  rewardComponent_ = std::make_unique<RewardComponent>(configComponent_->fetchConfigUseCase,
                                                       pointComponent_->fetchPointUseCase, networkConfig);
  pageComponent_ = std::make_unique<PageComponent>(configComponent_->fetchConfigUseCase);
  campaignComponent_ = std::make_unique<CampaignComponent>(
      configComponent_->fetchConfigUseCase, networkConfig, storeUrl, pageComponent_->pageRouter);
  referralComponent_ = std::make_unique<ReferralComponent>(
      configComponent_->fetchConfigUseCase, campaignComponent_->fetchCampaignsUseCase, networkConfig);
  pushComponent_ = std::make_unique<PushComponent>(networkConfig);
  eventComponent_ = std::make_unique<EventComponent>(networkConfig);
  inAppMessageComponent_ = std::make_unique<InAppMessageComponent>(
      configComponent_->fetchConfigUseCase, networkConfig, campaignComponent_->campaignNavigator);
}

RunningKit OrreloComponent::runningKit() const {
  return {
      .fetchConfigUseCase = configComponent_->fetchConfigUseCase,
      .campaignNavigator = campaignComponent_->campaignNavigator,
      .campaignListViewModel = campaignComponent_->campaignListViewModel,
      .fetchFloatingActionButtonPropertyUseCase =
          campaignComponent_->fetchFloatingActionButtonPropertyUseCase,
      .rewardViewModel = rewardComponent_->viewModel,
      .routers =
          {
              {Page::Fixed::pointRedemptionHistory, pointComponent_->router},
              {Page::Fixed::gifticon, gifticonComponent_->router},
              {Page::Fixed::referral, referralComponent_->router},
              {Page::Fixed::externalPointExchange, externalPointComponent_->router},
          },
  };
}

}  // namespace orrelo
