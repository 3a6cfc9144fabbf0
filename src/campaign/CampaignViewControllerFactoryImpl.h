#pragma once

#include "campaign/CampaignViewModel.h"
#include "viewkit/base/Routing.h"

#include <utility>

namespace orrelo {

/// Each screen gets a view model of its own.
class CampaignViewControllerFactoryImpl final : public CampaignViewControllerFactory {
 public:
  explicit CampaignViewControllerFactoryImpl(CampaignUseCases campaignUseCases)
      : useCases(std::move(campaignUseCases)) {}

  std::shared_ptr<ViewController> make(const std::string& id) const override;
  std::shared_ptr<ViewController> make(ORLCampaignType type) const override;

 private:
  CampaignUseCases useCases;
};

}  // namespace orrelo
