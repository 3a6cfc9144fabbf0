#pragma once

#include "campaign/Campaign.h"
#include "campaign/CampaignRepository.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

/// Fetches all campaigns and removes the stored states of campaigns that are no longer listed, including
/// which dialogs were shown.
class FetchCampaignsUseCase {
 public:
  explicit FetchCampaignsUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<std::vector<Campaign>> fetch(const std::string& userId) const;

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

}  // namespace orrelo
