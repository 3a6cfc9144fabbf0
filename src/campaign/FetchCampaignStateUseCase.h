#pragma once

#include "campaign/CampaignRepository.h"
#include "campaign/CampaignState.h"

#include <memory>
#include <utility>
#include <vector>

namespace orrelo {

class FetchCampaignStateUseCase {
 public:
  explicit FetchCampaignStateUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  std::vector<CampaignState> fetch() const { return repository_->fetchStates(); }

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

}  // namespace orrelo
