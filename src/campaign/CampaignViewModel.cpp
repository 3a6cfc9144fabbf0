#include "campaign/CampaignViewModel.h"

#include "campaign/LoadingState.h"
#include "campaign/branded.h"
#include "events/UserEventTracker.h"
#include "reactive/Combining.h"
#include "reactive/Observable.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

bool hasType(const Campaign& campaign, ORLCampaignType type) {
  try {
    return publicType(campaign) == type;
  } catch (const Error&) {
    return false;
  }
}

template <class T>
reactive::Observable<T> failure(OrreloError error) {
  return reactive::error<T>(makeError(error));
}

}  // namespace

std::shared_ptr<CampaignViewModelImpl> CampaignViewModelImpl::create(CampaignUseCases useCases) {
  return std::shared_ptr<CampaignViewModelImpl>(new CampaignViewModelImpl(std::move(useCases)));
}

/// Returns a stream operator that calls `method` and holds the view model weakly.
template <class In, class Out>
auto CampaignViewModelImpl::step(Stream<Out> (CampaignViewModelImpl::*method)(const In&)) {
  return [weak = weak_from_this(), method](const In& element) {
    const auto self = weak.lock();
    return self ? ((*self).*method)(element) : failure<Out>(OrreloError::referenceDeallocation);
  };
}

CampaignViewModel::Output CampaignViewModelImpl::transform(
    const Triggers<std::string>& loadTriggerByCampaignId,
    const Triggers<ORLCampaignType>& loadTriggerByCampaignType,
    const Triggers<std::string>& participateTrigger) {
  using Trigger = CampaignTrigger<std::string>;
  const auto loading = std::make_shared<LoadingState>();
  const auto begins = [loading](const auto&) { loading->begin(); };

  const auto byType =
      loadTriggerByCampaignType.doOn({.onNext = begins}).flatMap(step(&CampaignViewModelImpl::lookUp));
  const auto loads = reactive::merge<Trigger>({loadTriggerByCampaignId, byType})
                         .doOn({.onNext = begins})
                         .flatMap(step(&CampaignViewModelImpl::load));
  const auto participations =
      participateTrigger.doOn({.onNext = begins}).flatMap(step(&CampaignViewModelImpl::participate));
  const auto campaigns = reactive::merge<BrandedCampaign>({loads, participations})
                             .flatMap(step(&CampaignViewModelImpl::induceUpdateIfUnknown))
                             .doOn({.onNext =
                                        [weak = weak_from_this(), loading](const BrandedCampaign& branded) {
                                          if (const auto self = weak.lock()) self->remember(branded.campaign);
                                          loading->end();
                                        },
                                    .onError = [loading](const Error&) { loading->finish(); },
                                    .onCompleted = [loading] { loading->finish(); }});
  return {campaigns, loading->stream()};
}

CampaignViewModelImpl::Stream<CampaignTrigger<std::string>> CampaignViewModelImpl::lookUp(
    const CampaignTrigger<ORLCampaignType>& trigger) {
  using Found = CampaignTrigger<std::string>;
  if (!trigger.userId) return failure<Found>(OrreloError::notLoggedIn);
  return useCases_.fetchCampaignsUseCase.fetch(*trigger.userId)
      .map([trigger](const std::vector<Campaign>& campaigns) {
        const auto found = std::find_if(campaigns.begin(), campaigns.end(),
                                        [&](const auto& each) { return hasType(each, trigger.target); });
        if (found == campaigns.end()) throw makeError(OrreloError::campaignNotExists);
        return Found{found->id, trigger.userId};  // fetched by id, since a list may contain fewer details
      });
}

CampaignViewModelImpl::Stream<BrandedCampaign> CampaignViewModelImpl::load(
    const CampaignTrigger<std::string>& trigger) {
  if (!trigger.userId) return failure<BrandedCampaign>(OrreloError::notLoggedIn);
  return branded(useCases_.fetchCampaignUseCase.fetch(trigger.target, *trigger.userId),
                 *useCases_.fetchConfigUseCase);
}

CampaignViewModelImpl::Stream<BrandedCampaign> CampaignViewModelImpl::participate(
    const CampaignTrigger<std::string>& trigger) {
  if (!trigger.userId) return failure<BrandedCampaign>(OrreloError::notLoggedIn);
  std::optional<Campaign> shown;
  {
    const std::lock_guard lock(mutex_);
    shown = campaign_;
  }
  if (!shown) return failure<BrandedCampaign>(OrreloError::campaignNotExists);
  return branded(useCases_.participateCampaignUseCase->participate(*shown, trigger.target, *trigger.userId),
                 *useCases_.fetchConfigUseCase);
}

CampaignViewModelImpl::Stream<BrandedCampaign> CampaignViewModelImpl::induceUpdateIfUnknown(
    const BrandedCampaign& branded) {
  if (!std::holds_alternative<UnknownCampaign>(branded.campaign.type)) return reactive::just(branded);
  return useCases_.fetchUpdateUrlUseCase->fetch().map([branded](const std::string& url) {
    auto inducing = branded;
    inducing.campaign.type = InduceUpdateCampaign{url};
    return inducing;
  });
}

void CampaignViewModelImpl::remember(const Campaign& shown) {
  const std::lock_guard lock(mutex_);
  campaign_ = shown;
}

void CampaignViewModelImpl::visit(const Campaign& visited) {
  {
    const std::lock_guard lock(mutex_);
    if (lastVisitCampaign_ && lastVisitCampaign_->id == visited.id) return;
    lastVisitCampaign_ = visited;
  }
  UserEventTracker::track(UserEventName::visit, {{UserEventValueKey::pageName, pageName(visited)}});
}

}  // namespace orrelo
