#pragma once

#include "reactive/Creating.h"
#include "reactive/ObservableType.h"
#include "reactive/operators/Elementwise.h"
#include "reactive/operators/Flattening.h"

namespace orrelo::reactive {

enum class ReactiveError { moreThanOneElement };
Error makeError(ReactiveError error);

/// A stream of at most one element.
template <class T>
class Maybe {
 public:
  using Element = T;

  static Maybe just(T element) { return Maybe(reactive::just(std::move(element))); }
  static Maybe empty() { return Maybe(reactive::empty<T>()); }

  template <class F>
  auto map(F transform) const {
    return Maybe<std::invoke_result_t<F&, const T&>>(stream_.map(std::move(transform)));
  }
  /// `transform` returns a Maybe.
  template <class F>
  auto flatMap(F transform) const {
    using Out = typename std::invoke_result_t<F&, const T&>::Element;
    return Maybe<Out>(
        stream_.flatMap([transform](const T& element) mutable { return transform(element).asObservable(); }));
  }
  Maybe ifEmpty(T fallback) const { return ifEmptySwitchTo(just(std::move(fallback))); }
  Maybe ifEmptySwitchTo(Maybe other) const {
    return Maybe(stream_.materialize()
                     .concatMap([other = other.stream_, seen = false](const Event<T>& event) mutable {
                       seen = seen || event.element() != nullptr;
                       return event.isCompleted() && !seen ? other.materialize() : reactive::just(event);
                     })
                     .template dematerialize<T>());
  }

  Observable<T> asObservable() const { return stream_; }
  Disposable subscribe(Handlers<T> handlers) const { return stream_.subscribe(std::move(handlers)); }

 private:
  template <class>
  friend class Maybe;
  friend class Observable<T>;
  explicit Maybe(Observable<T> stream) : stream_(std::move(stream)) {}

  Observable<T> stream_;
};

/// A stream that never fails.
template <class T>
class Infallible {
 public:
  using Element = T;

  Observable<T> asObservable() const { return stream_; }
  Disposable subscribe(std::function<void(const T&)> onNext) const {
    return stream_.subscribe(std::move(onNext));
  }

 private:
  friend class Observable<T>;
  explicit Infallible(Observable<T> stream) : stream_(std::move(stream)) {}

  Observable<T> stream_;
};

template <class T>
Maybe<T> Observable<T>::asMaybe() const {
  return Maybe<T>(transformed<T>(*this, [count = 0](const T& element, Observer<T>& downstream) mutable {
    if (++count > 1) throw makeError(ReactiveError::moreThanOneElement);
    downstream.onNext(element);
  }));
}

template <class T>
Infallible<T> Observable<T>::asInfallible(T fallback) const {
  return Infallible<T>(catchAndReturn(std::move(fallback)));
}

}  // namespace orrelo::reactive
