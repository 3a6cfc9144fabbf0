#pragma once

#include "reactive/Disposable.h"
#include "reactive/Observable.h"

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

/// The scheduler on which a screen's stream works, and the one on which the screen receives its elements.
struct FollowSchedulers {
  reactive::SchedulerPtr background =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive);
  reactive::SchedulerPtr main = reactive::MainScheduler::instance();
};

/// Subscribes to the stream on a worker and delivers its elements to `owner` on the main thread. The owner is
/// held weakly; elements that arrive after its destruction are dropped. `onNext` is called with the owner and
/// an element, `onError` with the owner and an error; each may be a member function. The subscription ends
/// with `bag`.
template <class T, class Owner, class OnNext, class OnError>
void followOnMain(const reactive::Observable<T>& stream, const std::shared_ptr<Owner>& owner,
                  reactive::DisposeBag& bag, OnNext onNext, OnError onError,
                  const FollowSchedulers& schedulers = {}) {
  const std::weak_ptr<Owner> weak = owner;
  stream.subscribeOn(schedulers.background)
      .observeOn(schedulers.main)
      .subscribe({.onNext =
                      [weak, onNext = std::move(onNext)](const T& element) {
                        if (const auto self = weak.lock()) std::invoke(onNext, *self, element);
                      },
                  .onError =
                      [weak, onError = std::move(onError)](const Error& error) {
                        if (const auto self = weak.lock()) std::invoke(onError, *self, error);
                      }})
      .disposedBy(bag);
}

}  // namespace orrelo
