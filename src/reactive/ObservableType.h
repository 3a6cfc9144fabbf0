#pragma once

#include "reactive/Observer.h"
#include "reactive/Scheduler.h"

#include <chrono>
#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace orrelo::reactive {

template <class T>
class Maybe;
template <class T>
class Infallible;

/// The scheduler on which the cold work of a subscription starts; null for the subscribing thread. Hot
/// sources ignore it and attach at once, so that no element sent after `subscribe` has returned is lost.
using StartOn = SchedulerPtr;

/// The implementation of an Observable.
template <class T>
class Source {
 public:
  virtual ~Source() = default;
  virtual void subscribe(ObserverPtr<T> observer, const StartOn& startOn) const = 0;
};

/// A stream of elements that ends with a completion or an error. Unless it comes from a subject it is cold:
/// each subscription starts its own run. A value type; copies share the source.
///
/// Each subscription receives its elements one at a time and in order, on the thread on which the source
/// emits them unless `observeOn` changes it. An exception thrown by a callback ends the stream with that
/// error.
template <class T>
class Observable {
 public:
  using Element = T;

  explicit Observable(std::shared_ptr<const Source<T>> source) : source_(std::move(source)) {}

  // Operators on single elements.
  template <class F>
  auto map(F transform) const -> Observable<std::invoke_result_t<F&, const T&>>;
  /// `transform` returns an optional; absent results are dropped.
  template <class F>
  auto compactMap(F transform) const -> Observable<typename std::invoke_result_t<F&, const T&>::value_type>;
  template <class F>
  Observable<T> filter(F isWanted) const;
  /// Drops elements that are equal to their predecessor.
  Observable<T> distinctUntilChanged() const;
  /// Runs a side effect before each notification is passed on; `onDisposed` is ignored.
  Observable<T> doOn(Handlers<T> effects) const;
  Observable<Event<T>> materialize() const;
  /// The inverse of `materialize`; this must be a stream of Event<Out>.
  template <class Out>
  Observable<Out> dematerialize() const;
  Observable<T> catchAndReturn(T fallback) const;

  // Operators that map each element to an inner stream: `transform` returns an Observable.
  /// Merges the inner streams.
  template <class F>
  auto flatMap(F transform) const -> std::invoke_result_t<F&, const T&>;
  /// Runs at most `limit` inner streams at a time, which must be at least 1, and starts them in order;
  /// elements that arrive meanwhile are queued.
  template <class F>
  auto flatMap(F transform, std::size_t limit) const -> std::invoke_result_t<F&, const T&>;
  /// Disposes the current inner stream when a new element arrives.
  template <class F>
  auto flatMapLatest(F transform) const -> std::invoke_result_t<F&, const T&>;
  /// Like flatMap with the limit 1.
  template <class F>
  auto concatMap(F transform) const -> std::invoke_result_t<F&, const T&>;

  // Operators based on time.
  /// Emits the collected elements when there are `count` of them or when `timeSpan` has passed since the last
  /// emission; the list may be empty then.
  Observable<std::vector<T>> buffer(std::chrono::microseconds timeSpan, std::size_t count,
                                    SchedulerPtr scheduler) const;
  /// Emits at most one element per period: the first one immediately and, if `latest`, the last one of the
  /// period at its end.
  Observable<T> throttle(std::chrono::microseconds period, bool latest, SchedulerPtr scheduler) const;

  /// Subscribes again after an error; `count` limits the total number of subscriptions of a chain.
  Observable<T> retry(std::size_t count) const;

  /// Starts the source's cold work on `scheduler`.
  Observable<T> subscribeOn(SchedulerPtr scheduler) const;
  /// Delivers the notifications on `scheduler`.
  Observable<T> observeOn(SchedulerPtr scheduler) const;

  /// Converts a stream of at most one element; a second element fails with ReactiveError.moreThanOneElement.
  Maybe<T> asMaybe() const;
  /// Replaces an error by `fallback` and completion.
  Infallible<T> asInfallible(T fallback) const;

  Disposable subscribe(Handlers<T> handlers) const {
    auto subscriber = std::make_shared<Subscriber<T>>(std::move(handlers));
    source_->subscribe(subscriber, nullptr);
    return Disposable(std::move(subscriber));
  }
  Disposable subscribe(std::function<void(const T&)> onNext = nullptr) const {
    return subscribe(Handlers<T>{.onNext = std::move(onNext)});
  }

  /// Used by operators.
  void subscribe(ObserverPtr<T> observer, const StartOn& startOn) const {
    source_->subscribe(std::move(observer), startOn);
  }

 private:
  std::shared_ptr<const Source<T>> source_;
};

/// An operator's source: subscribes `makeNode(downstream)` to the upstream.
template <class In, class Out, class MakeNode>
class OperatorSource final : public Source<Out> {
 public:
  OperatorSource(Observable<In> upstream, MakeNode makeNode)
      : upstream_(std::move(upstream)), makeNode_(std::move(makeNode)) {}

  void subscribe(ObserverPtr<Out> observer, const StartOn& startOn) const override {
    upstream_.subscribe(makeNode_(std::move(observer)), startOn);
  }

 private:
  Observable<In> upstream_;
  MakeNode makeNode_;
};

template <class Out, class In, class MakeNode>
Observable<Out> makeOperator(Observable<In> upstream, MakeNode makeNode) {
  return Observable<Out>(
      std::make_shared<OperatorSource<In, Out, MakeNode>>(std::move(upstream), std::move(makeNode)));
}

/// A source made from a function of (observer, startOn).
template <class T, class Subscribe>
Observable<T> makeSource(Subscribe subscribe) {
  class FunctionSource final : public Source<T> {
   public:
    explicit FunctionSource(Subscribe function) : subscribe_(std::move(function)) {}
    void subscribe(ObserverPtr<T> observer, const StartOn& startOn) const override {
      subscribe_(std::move(observer), startOn);
    }

   private:
    Subscribe subscribe_;
  };
  return Observable<T>(std::make_shared<FunctionSource>(std::move(subscribe)));
}

}  // namespace orrelo::reactive
