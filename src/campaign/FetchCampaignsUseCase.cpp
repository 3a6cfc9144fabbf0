#include "campaign/FetchCampaignsUseCase.h"

#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<std::vector<Campaign>> FetchCampaignsUseCase::fetch(const std::string& userId) const {
  return repository_->fetchCampaigns(userId).doOn(
      {.onNext = [repository = repository_](const auto& campaigns) { repository->pruneStates(campaigns); }});
}

}  // namespace orrelo
