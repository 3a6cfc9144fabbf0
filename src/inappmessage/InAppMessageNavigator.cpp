#include "inappmessage/InAppMessageNavigator.h"

#include "base/explain.h"
#include "reactive/Combining.h"
#include "reactive/Observable.h"
#include "ui/followOnMain.h"

#include <tuple>
#include <utility>
#include <vector>

namespace orrelo {

using Messages = std::vector<InAppMessage>;

std::shared_ptr<InAppMessageNavigator> InAppMessageNavigator::create(
    std::shared_ptr<InAppMessageSkipTimeCheckService> service,
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
    std::shared_ptr<FetchInAppMessagesUseCase> fetchInAppMessagesUseCase,
    std::shared_ptr<InAppMessageViewControllerFactory> factory) {
  return std::shared_ptr<InAppMessageNavigator>(
      new InAppMessageNavigator(std::move(service), std::move(fetchConfigUseCase),
                                std::move(fetchInAppMessagesUseCase), std::move(factory)));
}

InAppMessageNavigator::InAppMessageNavigator(
    std::shared_ptr<InAppMessageSkipTimeCheckService> service,
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
    std::shared_ptr<FetchInAppMessagesUseCase> fetchInAppMessagesUseCase,
    std::shared_ptr<InAppMessageViewControllerFactory> factory)
    : skipTimeCheckService(std::move(service)),
      fetchConfigUseCase_(std::move(fetchConfigUseCase)),
      fetchInAppMessagesUseCase_(std::move(fetchInAppMessagesUseCase)),
      inAppMessageviewControllerFactory_(std::move(factory)),
      concurrentScheduler_(
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)),
      mainScheduler_(reactive::MainScheduler::instance()) {}

void InAppMessageNavigator::show(const std::shared_ptr<ViewController>& viewController,
                                 const std::string& userId) {
  const auto messages = fetchInAppMessagesUseCase_->fetch(userId).filter([](const Messages& fetched) {
    if (fetched.empty()) {
      explain(ExplanationLevel::info,
              "showInAppMessage shows nothing, since the service has no messages for this user.");
    }
    return !fetched.empty();
  });
  const std::weak_ptr<ViewController> from = viewController;
  followOnMain(
      reactive::zip(messages, fetchConfigUseCase_->fetch()), shared_from_this(), disposeBag_,
      [from](InAppMessageNavigator& self, const std::tuple<Messages, Config>& pair) {
        const auto& [fetched, config] = pair;
        if (const auto presenting = from.lock()) {
          presenting->present(self.inAppMessageviewControllerFactory_->make(fetched, config), true);
        }
      },
      [](InAppMessageNavigator&, const Error& error) {  // the user sees nothing of a failed fetch
        explain(ExplanationLevel::warning, [&] {
          return "showInAppMessage shows nothing, since the messages could not be fetched: " +
                 error.description() + '.';
        });
      },
      {concurrentScheduler_, mainScheduler_});
}

}  // namespace orrelo
