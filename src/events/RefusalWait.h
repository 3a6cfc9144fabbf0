#pragma once

#include "base/explain.h"
#include "reactive/Observable.h"

#include <orrelo/platform/EventDatabase.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// A subscription to a step of a store that subscribes again, after pauses that grow, while the store refuses
/// the step. Disposing of it ends the wait. The step must emit no element before it fails.
template <class T>
class RefusalWait final : public reactive::Cancelable, public std::enable_shared_from_this<RefusalWait<T>> {
 public:
  RefusalWait(reactive::Observable<T> step, std::function<std::string()> describe,
              reactive::SchedulerPtr scheduler, reactive::AnyObserver<T> observer)
      : step_(std::move(step)),
        describe_(std::move(describe)),
        scheduler_(std::move(scheduler)),
        observer_(std::move(observer)) {}

  void start() {
    const auto self = this->shared_from_this();
    current_.set(step_.subscribe({.onNext = [self](const T& element) { self->observer_.onNext(element); },
                                  .onError = [self](const Error& error) { self->failed(error); },
                                  .onCompleted = [self] { self->observer_.onCompleted(); }}));
  }

  void dispose() override { current_.dispose(); }
  bool isDisposed() const override { return current_.isDisposed(); }

 private:
  static constexpr std::chrono::milliseconds firstPause{100};
  static constexpr std::chrono::milliseconds longestPause{30'000};

  void failed(const Error& error) {
    if (!isStoreRefusal(error)) return observer_.onError(error);
    if (pause_ == firstPause) {
      explain(ExplanationLevel::warning,
              [&] { return describe_() + " fails for now and is tried again: " + error.description(); });
    }
    scheduler_->scheduleAfter(pause_, [weak = this->weak_from_this()] {
      const auto self = weak.lock();
      if (self && !self->isDisposed()) self->start();
    });
    pause_ = std::min(2 * pause_, longestPause);
  }

  const reactive::Observable<T> step_;
  const std::function<std::string()> describe_;
  const reactive::SchedulerPtr scheduler_;
  const reactive::AnyObserver<T> observer_;
  reactive::SerialDisposable current_;
  std::chrono::milliseconds pause_ = firstPause;
};

/// The stream of `step`, in which a refusal of the store is no failure but a wait on `scheduler`. `describe`
/// says in the log what fails.
template <class T>
reactive::Observable<T> waitingOutRefusals(reactive::Observable<T> step,
                                           std::function<std::string()> describe,
                                           reactive::SchedulerPtr scheduler) {
  return reactive::create<T>([step = std::move(step), describe = std::move(describe),
                              scheduler = std::move(scheduler)](const reactive::AnyObserver<T>& observer) {
    const auto wait = std::make_shared<RefusalWait<T>>(step, describe, scheduler, observer);
    wait->start();
    return reactive::Disposable(wait);
  });
}

}  // namespace orrelo
