#include "campaign/list/CampaignListViewModel.h"

#include "reactive/Combining.h"
#include "reactive/Observable.h"

namespace orrelo {
namespace {

using Campaigns = std::vector<Campaign>;
using ViewState = CampaignListViewModel::ViewState;

std::optional<ViewState> stateOf(const reactive::Event<Campaigns>& event) {
  if (const auto* const campaigns = event.element()) return CampaignListViewModel::Loaded{*campaigns};
  if (const auto* const error = event.error()) return CampaignListViewModel::Failed{*error};
  return std::nullopt;
}

}  // namespace

reactive::Observable<ViewState> CampaignListViewModel::transform(const Input& input) const {
  return input.trigger.flatMapLatest([weak = weak_from_this()](const std::optional<std::string>& userId) {
    const auto self = weak.lock();
    const auto campaigns =
        self ? self->load(userId) : reactive::error<Campaigns>(makeError(OrreloError::referenceDeallocation));
    return reactive::merge<ViewState>(
        {reactive::just<ViewState>(Loading{}), campaigns.materialize().compactMap(&stateOf)});
  });
}

reactive::Observable<Campaigns> CampaignListViewModel::load(const std::optional<std::string>& userId) const {
  if (!userId) return reactive::error<Campaigns>(makeError(OrreloError::notLoggedIn));
  return fetchCampaignsUseCase_.fetch(*userId);
}

}  // namespace orrelo
