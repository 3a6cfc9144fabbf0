#pragma once

#include "campaign/Campaign.h"
#include "campaign/CampaignRepository.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class FetchCampaignUseCase {
 public:
  explicit FetchCampaignUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<Campaign> fetch(const std::string& campaignId, const std::string& userId) const {
    return repository_->fetchCampaign(campaignId, userId);
  }

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

}  // namespace orrelo
