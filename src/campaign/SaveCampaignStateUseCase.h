#pragma once

#include "campaign/CampaignRepository.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class SaveCampaignStateUseCase {
 public:
  explicit SaveCampaignStateUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  void save(const std::string& campaignId, bool popUpDialogIsShown) const {
    repository_->saveState({campaignId, popUpDialogIsShown});
  }

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

}  // namespace orrelo
