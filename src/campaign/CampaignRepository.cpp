#include "campaign/CampaignRepository.h"

#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<std::vector<Campaign>> FetchCampaignsUseCase::fetch(const std::string& userId) const {
  return repository->fetchCampaigns(userId).doOn(
      {.onNext = [repository = repository](const auto& campaigns) { repository->pruneStates(campaigns); }});
}

}  // namespace orrelo
