#include "navigation/CampaignNavigatorImpl.h"

#include "base/explain.h"
#include "navigation/HomeViewController.h"
#include "reactive/Combining.h"
#include "ui/followOnMain.h"
#include "ui/showScreen.h"
#include "viewkit/ErrorViewController.h"

#include <tuple>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

/// The id of the campaign to open; absent for home.
using OnlyCampaign = std::optional<std::string>;

bool hasPlugin(const Config& config) {
  const auto& plugin = config.plugin;
  return plugin.pointSystem || plugin.externalPointPlugin.enabled() != nullptr || plugin.gifticon;
}

OnlyCampaign onlyCampaign(const std::tuple<std::vector<Campaign>, bool>& found) {
  const auto& [campaigns, hasPlugin] = found;
  return !hasPlugin && campaigns.size() == 1 ? OnlyCampaign(campaigns.front().id) : std::nullopt;
}

void showError(const char* message, const std::shared_ptr<ViewController>& with) {
  showScreen(std::make_shared<ErrorViewController>(message), with);
}

}  // namespace

std::shared_ptr<CampaignNavigatorImpl> CampaignNavigatorImpl::create(
    FetchCampaignsUseCase fetchCampaignsUseCase, std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
    std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory) {
  return std::shared_ptr<CampaignNavigatorImpl>(
      new CampaignNavigatorImpl(std::move(fetchCampaignsUseCase), std::move(fetchConfigUseCase),
                                std::move(campaignViewControllerFactory)));
}

CampaignNavigatorImpl::CampaignNavigatorImpl(
    FetchCampaignsUseCase fetchCampaignsUseCase, std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
    std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory)
    : fetchCampaignsUseCase_(std::move(fetchCampaignsUseCase)),
      fetchConfigUseCase_(std::move(fetchConfigUseCase)),
      campaignViewControllerFactory_(std::move(campaignViewControllerFactory)),
      concurrentScheduler_(
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)),
      mainScheduler_(reactive::MainScheduler::instance()) {}

void CampaignNavigatorImpl::showHome(const std::shared_ptr<ViewController>& with,
                                     const std::optional<std::string>& userId) {
  if (!with) return;
  // Both texts deliberately differ from those of `errorText`.
  if (!userId) {
    explain(ExplanationLevel::warning,
            "Home asks the user to sign in, since there is no user: call Orrelo::setUser first.");
    return showError("로그인 후 다시 시도해주세요.", with);
  }
  const auto destination =
      reactive::zip(fetchCampaignsUseCase_.fetch(*userId), fetchConfigUseCase_->fetch().map(&hasPlugin))
          .map(&onlyCampaign);
  const std::weak_ptr<ViewController> from = with;
  followOnMain(
      destination, shared_from_this(), disposeBag_,
      [from](CampaignNavigatorImpl& self, const OnlyCampaign& campaign) {
        const auto& factory = *self.campaignViewControllerFactory_;
        showScreen(campaign ? factory.make(*campaign) : HomeViewController::create(), from.lock());
      },
      [from](CampaignNavigatorImpl&, const Error& error) {
        explain(ExplanationLevel::warning,
                [&] { return "Home could not be loaded and shows an error: " + error.description() + '.'; });
        showError("잠시 후 다시 시도해주세요.", from.lock());
      },
      {concurrentScheduler_, mainScheduler_});
}

}  // namespace orrelo
