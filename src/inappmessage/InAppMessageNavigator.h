#pragma once

#include "config/FetchConfigUseCase.h"
#include "inappmessage/FetchInAppMessagesUseCase.h"
#include "inappmessage/InAppMessageSkipTimeCheckService.h"
#include "inappmessage/InAppMessageViewControllerFactory.h"
#include "reactive/Disposable.h"
#include "reactive/Scheduler.h"
#include "ui/ViewController.h"

#include <memory>
#include <string>

namespace orrelo {

/// Fetches the messages of a user and shows them. Fetches that still run end with this object.
class InAppMessageNavigator final : public std::enable_shared_from_this<InAppMessageNavigator> {
 public:
  static std::shared_ptr<InAppMessageNavigator> create(
      std::shared_ptr<InAppMessageSkipTimeCheckService> service,
      std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
      std::shared_ptr<FetchInAppMessagesUseCase> fetchInAppMessagesUseCase,
      std::shared_ptr<InAppMessageViewControllerFactory> factory);

  const std::shared_ptr<InAppMessageSkipTimeCheckService> skipTimeCheckService;

  /// Presents the messages on `viewController`, which is held weakly. Shows and logs nothing if there are
  /// none or if they cannot be fetched. Each call fetches anew; the presentation is refused while
  /// `viewController` already presents a screen. Main thread.
  void show(const std::shared_ptr<ViewController>& viewController, const std::string& userId);

 private:
  InAppMessageNavigator(std::shared_ptr<InAppMessageSkipTimeCheckService> service,
                        std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                        std::shared_ptr<FetchInAppMessagesUseCase> fetchInAppMessagesUseCase,
                        std::shared_ptr<InAppMessageViewControllerFactory> factory);

  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  const std::shared_ptr<FetchInAppMessagesUseCase> fetchInAppMessagesUseCase_;
  const std::shared_ptr<InAppMessageViewControllerFactory> inAppMessageviewControllerFactory_;
  const reactive::SchedulerPtr concurrentScheduler_;
  const reactive::SchedulerPtr mainScheduler_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
