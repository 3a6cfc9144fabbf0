#include "campaign/CampaignViewControllerFactoryImpl.h"

#include "campaign/CampaignViewController.h"

namespace orrelo {

// The screen keeps the default presentation style, which is full screen.
template <class Target>
std::shared_ptr<ViewController> CampaignViewControllerFactoryImpl::makeFor(const Target& target) const {
  const auto screen = CampaignViewController::create(CampaignViewModelImpl::create(useCases_), target);
  screen->pageRouter = pageRouter_;
  return screen;
}

std::shared_ptr<ViewController> CampaignViewControllerFactoryImpl::make(const std::string& id) const {
  return makeFor(id);
}

std::shared_ptr<ViewController> CampaignViewControllerFactoryImpl::make(ORLCampaignType type) const {
  return makeFor(type);
}

}  // namespace orrelo
