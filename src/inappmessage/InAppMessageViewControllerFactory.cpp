#include "inappmessage/InAppMessageViewControllerFactory.h"

#include "inappmessage/InAppMessageViewController.h"

namespace orrelo {

std::shared_ptr<ViewController> InAppMessageViewControllerFactoryImpl::make(
    std::vector<InAppMessage> messages, const Config& config) {
  auto screen = std::make_shared<InAppMessageViewController>(
      viewModel_, campaignNavigator_, std::move(messages), config.autoSwipeIntervalMillis, config.brandTheme);
  screen->modalTransitionStyle = ModalTransitionStyle::crossDissolve;
  screen->modalPresentationStyle = ModalPresentationStyle::overCurrentContext;
  return screen;
}

}  // namespace orrelo
