#pragma once

#include "push/PushRouter.h"
#include "push/PushTokenRepository.h"
#include "reactive/Disposable.h"
#include "reactive/Scheduler.h"
#include "reactive/Subjects.h"

#include <orrelo/BackgroundFetchResult.h>
#include <orrelo/NotificationResponse.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace orrelo {

/// Uploads the push token for the current user, and handles notifications.
///
/// Each new token and each new user uploads the latest of both, once both were given after the construction;
/// an absent user uploads nothing. At most four uploads run at a time; the others wait in order, and equal
/// tokens that wait share their memory. The first upload that fails cancels the others and ends the uploading
/// for the lifetime of this object.
class OrreloPush final {
 public:
  /// Tokens are uploaded on `concurrentScheduler`.
  OrreloPush(std::shared_ptr<PushTokenRepository> pushTokenRepository, std::shared_ptr<PushRouter> router,
             reactive::SchedulerPtr concurrentScheduler =
                 std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::utility));

  /// The text must be valid UTF-8. Any thread.
  void setToken(PushToken token) const {
    tokenStream_.onNext(std::make_shared<const PushToken>(std::move(token)));
  }
  /// Ends the uploading. Any thread.
  void stopSending() { disposeBag_.dispose(); }

  /// Open the notification's page and then call the completion, both on the main thread: immediately when
  /// called there, otherwise in a posted task. A notification that is not the kit's is left to the host: no
  /// page is opened, and the completion is not called. An empty completion is allowed. Any thread.
  void handle(const NotificationResponse& response, std::function<void()> completion) const;
  void handle(const EventDictionary& userInfo, std::function<void(BackgroundFetchResult)> completion) const;

 private:
  using SharedToken = std::shared_ptr<const PushToken>;
  using TokenOfUser = std::tuple<SharedToken, std::string>;

  void startSending();
  void open(const EventDictionary& userInfo, std::function<void()> completion) const;

  std::shared_ptr<PushTokenRepository> pushTokenRepository_;
  reactive::DisposeBag disposeBag_;
  std::shared_ptr<PushRouter> router_;
  reactive::SchedulerPtr concurrentScheduler_;
  reactive::PublishSubject<SharedToken> tokenStream_;
};

}  // namespace orrelo
