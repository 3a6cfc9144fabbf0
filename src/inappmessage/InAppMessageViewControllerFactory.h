#pragma once

#include "config/Config.h"
#include "inappmessage/InAppMessage.h"
#include "inappmessage/InAppMessageViewModel.h"
#include "ui/CampaignNavigator.h"
#include "ui/ViewController.h"

#include <memory>
#include <utility>
#include <vector>

namespace orrelo {

class InAppMessageViewControllerFactory {
 public:
  virtual ~InAppMessageViewControllerFactory() = default;

  /// A new screen with these messages, which fades in over the screen that presents it. Main thread.
  virtual std::shared_ptr<ViewController> make(std::vector<InAppMessage> messages, const Config& config) = 0;
};

class InAppMessageViewControllerFactoryImpl final : public InAppMessageViewControllerFactory {
 public:
  InAppMessageViewControllerFactoryImpl(std::shared_ptr<InAppMessageViewModel> viewModel,
                                        std::shared_ptr<CampaignNavigator> campaignNavigator)
      : viewModel_(std::move(viewModel)), campaignNavigator_(std::move(campaignNavigator)) {}

  std::shared_ptr<ViewController> make(std::vector<InAppMessage> messages, const Config& config) override;

 private:
  const std::shared_ptr<InAppMessageViewModel> viewModel_;
  const std::shared_ptr<CampaignNavigator> campaignNavigator_;
};

}  // namespace orrelo
