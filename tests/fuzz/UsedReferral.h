#pragma once

#include "campaign/referral/ReferralCampaignView.h"
#include "kit/CampaignComponent.h"
#include "kit/ReferralComponent.h"
#include "referral/ReferralViewController.h"
#include "require.h"
#include "support/FixedConfig.h"
#include "support/TestPlatform.h"

#include <memory>
#include <string>

namespace orrelo::test {

/// Drives the page of a referral campaign as a front and a user do.
inline void useReferralPage(const ReferralCampaign& referral, ManualLoop& loop) {
  const auto view = std::make_shared<ReferralCampaignView>(referral);
  int leads = 0;
  view->onNavigateViewDidTap = [&leads] { ++leads; };
  view->didLayOut({0, 10, 300, 40}, {0, 0, 300, 300});
  require(!view->awaitsNavigateView.value(), "a box in sight is reported");
  view->copyCode();
  view->shareReferralMessage();
  view->showReferralViewController();
  require(leads == (referral.navigateEnable ? 1 : 0), "the box leads on where it may");
  require(!view->toastLayer->toasts.value().empty(), "a copy is told");
  loop.run();
}

/// Enters a code over a service with these replies. The parameters tell what the replies say.
struct UsedReferralReplies {
  bool isVerified = false;
  bool isAuthorized = false;
};
inline void useReferralScreen(TestPlatform& platform, const NetworkConfig& networkConfig,
                              const UsedReferralReplies& replies) {
  const auto host = std::make_shared<HostViewController>();
  host->appear(false);
  const auto config = std::make_shared<FixedConfig>();
  const CampaignComponent campaigns(config, networkConfig, networkConfig.baseUrl, nullptr);
  const ReferralComponent component(config, campaigns.fetchCampaignsUseCase, networkConfig);
  component.router->route(
      host, [] {}, [](const Error&) {});
  platform.loop->run();
  const auto screen = std::dynamic_pointer_cast<ReferralViewController>(host->presentedViewController());
  require(screen != nullptr, "the screen opens");
  screen->setCode("ABC123");
  screen->verificationButton->onTouchUpInside();
  platform.loop->run();
  require(screen->state().isCodeEditable != replies.isVerified, "a code is verified if the reply says so");
  require(!screen->state().isLoading, "a request ends");
  screen->authorizationButton->onTouchUpInside();
  platform.loop->run();
  const auto card = std::dynamic_pointer_cast<CampaignRewardViewController>(host->topmost());
  require((card != nullptr) == (replies.isVerified && replies.isAuthorized),
          "a reward is announced if the reply says so");
  if (!card) return;
  card->close();
  require(!host->presentedViewController(), "the screen leaves with its reward");
}

}  // namespace orrelo::test
