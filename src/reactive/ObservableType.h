#pragma once

#include "reactive/Observer.h"
#include "reactive/Scheduler.h"

#include <chrono>
#include <concepts>
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

/// Where the cold work of a subscription begins; null for the thread that subscribes. Hot sources attach at
/// once all the same, so that nothing sent after `subscribe` returned is lost.
using StartOn = SchedulerPtr;

/// What stands behind an Observable.
template <class T>
class Source {
 public:
  virtual ~Source() = default;
  virtual void subscribe(ObserverPtr<T> observer, const StartOn& startOn) const = 0;
};

/// A stream of elements that ends in completion or in an error. Cold unless it comes from a subject: nothing
/// runs before `subscribe`, and each subscription runs it anew. A value; copies share what stands behind it.
///
/// Elements of one subscription come one at a time and in order, on whichever thread the source emits on,
/// unless `observeOn` moves them. What a callback throws ends the stream as its error.
template <class T>
class Observable {
 public:
  using Element = T;

  explicit Observable(std::shared_ptr<const Source<T>> source) : source_(std::move(source)) {}

  // Element by element.
  template <class F>
  auto map(F transform) const -> Observable<std::invoke_result_t<F&, const T&>>;
  /// `transform` gives an optional; absent results are dropped.
  template <class F>
  auto compactMap(F transform) const -> Observable<typename std::invoke_result_t<F&, const T&>::value_type>;
  template <class F>
  Observable<T> filter(F isWanted) const;
  /// Drops an element equal to the one before.
  Observable<T> distinctUntilChanged() const;
  /// A side effect before each notification is passed on. Only `onNext`, `onError` and `onCompleted` count.
  Observable<T> doOn(Handlers<T> effects) const;
  Observable<Event<T>> materialize() const;
  /// For a stream of Event<Out>.
  template <class Out>
  Observable<Out> dematerialize() const;
  Observable<T> catchAndReturn(T fallback) const;

  // Streams of streams: `transform` gives an Observable.
  /// Merges the inner streams.
  template <class F>
  auto flatMap(F transform) const -> std::invoke_result_t<F&, const T&>;
  /// Drops the inner stream when a new element comes.
  template <class F>
  auto flatMapLatest(F transform) const -> std::invoke_result_t<F&, const T&>;
  /// One inner stream at a time, in order; elements that come meanwhile wait.
  template <class F>
  auto concatMap(F transform) const -> std::invoke_result_t<F&, const T&>;

  // In time.
  /// Emits what came when there are `count` of it or `timeSpan` has passed since the last emission, an empty
  /// list too. `timeSpan` is counted anew at each emission.
  Observable<std::vector<T>> buffer(std::chrono::microseconds timeSpan, std::size_t count,
                                    SchedulerPtr scheduler) const;
  /// At most one element a period: the first at once, and with `latest` the last of a period at its end.
  Observable<T> throttle(std::chrono::microseconds period, bool latest, SchedulerPtr scheduler) const;

  /// Subscribes again on an error, `count` subscriptions in all over the life of the chain.
  Observable<T> retry(std::size_t count) const;

  /// The source's cold work begins on `scheduler`.
  Observable<T> subscribeOn(SchedulerPtr scheduler) const;
  /// What follows runs on `scheduler`.
  Observable<T> observeOn(SchedulerPtr scheduler) const;

  /// For a stream of at most one element; a second one is the error ReactiveError.moreThanOneElement.
  Maybe<T> asMaybe() const;
  /// An error becomes `fallback` and completion.
  Infallible<T> asInfallible(T fallback) const;

  Disposable subscribe(Handlers<T> handlers) const {
    auto subscriber = std::make_shared<Subscriber<T>>(std::move(handlers));
    source_->subscribe(subscriber, nullptr);
    return Disposable(std::move(subscriber));
  }
  Disposable subscribe(std::function<void(const T&)> onNext = nullptr) const {
    return subscribe(Handlers<T>{.onNext = std::move(onNext)});
  }

  /// For operators.
  void subscribe(ObserverPtr<T> observer, const StartOn& startOn) const {
    source_->subscribe(std::move(observer), startOn);
  }

 private:
  std::shared_ptr<const Source<T>> source_;
};

/// An operator: a source that subscribes `makeNode(downstream)` to the stream before it.
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
