#pragma once

#include "kit/CampaignComponent.h"
#include "kit/ConfigComponent.h"
#include "kit/EventComponent.h"
#include "kit/ExternalPointComponent.h"
#include "kit/GifticonComponent.h"
#include "kit/InAppMessageComponent.h"
#include "kit/PageComponent.h"
#include "kit/PointComponent.h"
#include "kit/PushComponent.h"
#include "kit/ReferralComponent.h"
#include "kit/RewardComponent.h"
#include "ui/RunningKit.h"

#include <orrelo/ORLConfig.h>

#include <memory>
#include <string>

namespace orrelo {

/// The component tree: each feature's component, built once and in order on the caller's thread. Some
/// components start background work in their constructors; it only uses components that already exist.
class OrreloComponent {
 public:
  /// `baseUrl` ends in "/orreloservice/"; `storeUrl` is the base URL of the store's lookup service. Stops the
  /// process if the app key is not a valid suite name.
  OrreloComponent(const ORLConfig& config, const std::string& baseUrl, const std::string& storeUrl);

  const ConfigComponent& configComponent() const { return *configComponent_; }
  const ExternalPointComponent& externalPointComponent() const { return *externalPointComponent_; }
  const PushComponent& pushComponent() const { return *pushComponent_; }
  const PointComponent& pointComponent() const { return *pointComponent_; }
  const CampaignComponent& campaignComponent() const { return *campaignComponent_; }
  const InAppMessageComponent& inAppMessageComponent() const { return *inAppMessageComponent_; }
  const ReferralComponent& referralComponent() const { return *referralComponent_; }
  const EventComponent& eventComponent() const { return *eventComponent_; }
  const GifticonComponent& gifticonComponent() const { return *gifticonComponent_; }
  const RewardComponent& rewardComponent() const { return *rewardComponent_; }
  const PageComponent& pageComponent() const { return *pageComponent_; }

  /// The services of this tree for the features.
  RunningKit runningKit() const;

 private:
  std::unique_ptr<ConfigComponent> configComponent_;
  std::unique_ptr<ExternalPointComponent> externalPointComponent_;
  std::unique_ptr<PushComponent> pushComponent_;
  std::unique_ptr<PointComponent> pointComponent_;
  std::unique_ptr<CampaignComponent> campaignComponent_;
  std::unique_ptr<InAppMessageComponent> inAppMessageComponent_;
  std::unique_ptr<ReferralComponent> referralComponent_;
  std::unique_ptr<EventComponent> eventComponent_;
  std::unique_ptr<GifticonComponent> gifticonComponent_;
  std::unique_ptr<RewardComponent> rewardComponent_;
  std::unique_ptr<PageComponent> pageComponent_;
};

}  // namespace orrelo
