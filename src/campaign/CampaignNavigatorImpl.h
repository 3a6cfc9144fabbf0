#pragma once

#include "ui/CampaignNavigator.h"
#include "ui/CampaignViewControllerFactory.h"

#include <memory>
#include <utility>

namespace orrelo {

class CampaignNavigatorImpl final : public CampaignNavigator {
 public:
  explicit CampaignNavigatorImpl(std::shared_ptr<CampaignViewControllerFactory> factory)
      : factory_(std::move(factory)) {}

  std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const override {
    return factory_;
  }

 private:
  const std::shared_ptr<CampaignViewControllerFactory> factory_;
};

}  // namespace orrelo
