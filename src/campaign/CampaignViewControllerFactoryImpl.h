#pragma once

#include "campaign/CampaignViewModel.h"
#include "ui/CampaignViewControllerFactory.h"
#include "ui/PageRouter.h"

#include <utility>

namespace orrelo {

/// Creates each screen with its own view model.
class CampaignViewControllerFactoryImpl final : public CampaignViewControllerFactory {
 public:
  CampaignViewControllerFactoryImpl(CampaignUseCases useCases, std::shared_ptr<PageRouter> pageRouter)
      : useCases_(std::move(useCases)), pageRouter_(std::move(pageRouter)) {}

  std::shared_ptr<ViewController> make(const std::string& id) const override;
  std::shared_ptr<ViewController> make(ORLCampaignType type) const override;

 private:
  template <class Target>
  std::shared_ptr<ViewController> makeFor(const Target& target) const;

  CampaignUseCases useCases_;
  std::shared_ptr<PageRouter> pageRouter_;
};

}  // namespace orrelo
