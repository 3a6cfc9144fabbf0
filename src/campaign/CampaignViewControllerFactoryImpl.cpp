#include "campaign/CampaignViewControllerFactoryImpl.h"

#include "campaign/CampaignViewController.h"

namespace orrelo {

// Full screen is what a screen is presented as where nobody says otherwise.
std::shared_ptr<ViewController> CampaignViewControllerFactoryImpl::make(const std::string& id) const {
  return CampaignViewController::create(CampaignViewModelImpl::create(useCases), id);
}

std::shared_ptr<ViewController> CampaignViewControllerFactoryImpl::make(ORLCampaignType type) const {
  return CampaignViewController::create(CampaignViewModelImpl::create(useCases), type);
}

}  // namespace orrelo
