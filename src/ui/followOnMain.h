#pragma once

#include "reactive/Disposable.h"
#include "reactive/Observable.h"

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

/// Where a screen's stream does its work, and where the screen hears of it.
struct FollowSchedulers {
  reactive::SchedulerPtr background =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive);
  reactive::SchedulerPtr main = reactive::MainScheduler::instance();
};

/// Begins the stream's work on a worker and hands what comes of it to `owner` on the main thread, for as long
/// as the owner is there: it is held weakly. `onNext` is called with the owner and an element, `onError` with
/// the owner and an error; each may be a member function. The subscription ends with `bag`.
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
