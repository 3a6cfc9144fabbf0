#pragma once

#include "campaign/FetchCampaignsUseCase.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/Disposable.h"
#include "reactive/Scheduler.h"
#include "ui/CampaignNavigator.h"
#include "ui/CampaignViewControllerFactory.h"

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Each call of `showHome` fetches anew and opens its own screen. Calls that still run end with this object.
class CampaignNavigatorImpl final : public CampaignNavigator,
                                    public std::enable_shared_from_this<CampaignNavigatorImpl> {
 public:
  static std::shared_ptr<CampaignNavigatorImpl> create(
      FetchCampaignsUseCase fetchCampaignsUseCase, std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
      std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory);

  void showHome(const std::shared_ptr<ViewController>& with,
                const std::optional<std::string>& userId) override;
  std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const override {
    return campaignViewControllerFactory_;
  }

 private:
  CampaignNavigatorImpl(FetchCampaignsUseCase fetchCampaignsUseCase,
                        std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                        std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory);

  const FetchCampaignsUseCase fetchCampaignsUseCase_;
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  const std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory_;
  const reactive::SchedulerPtr concurrentScheduler_;
  const reactive::SchedulerPtr mainScheduler_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
