#pragma once

#include "reactive/ObservableType.h"

namespace orrelo::reactive {

/// The base of operators that handle notifications synchronously. Passes its source's handle downstream.
template <class In, class Out>
class ElementwiseNode : public Observer<In> {
 public:
  explicit ElementwiseNode(ObserverPtr<Out> downstream) : downstream_(std::move(downstream)) {}

  void onSubscribe(Disposable upstream) override {
    upstream_ = upstream;
    downstream_->onSubscribe(std::move(upstream));
  }

  void onError(const Error& error) override {
    if (auto downstream = finish()) downstream->onError(error);
  }

  void onCompleted() override {
    if (auto downstream = finish()) downstream->onCompleted();
  }

 protected:
  /// Null once the stream has ended; the source may still emit elements then.
  Observer<Out>* downstream() { return downstream_.get(); }

  ObserverPtr<Out> finish() {
    upstream_ = {};
    return std::exchange(downstream_, nullptr);
  }

  /// Ends the stream downstream and cancels the upstream.
  void end(const Event<Out>& event) {
    const auto upstream = upstream_;
    if (auto downstream = finish()) downstream->on(event);
    upstream.dispose();
  }

  /// Runs `step`; an exception that it throws ends the stream.
  template <class Step>
  void guarded(Step step) {
    if (!downstream_) return;
    try {
      step();
    } catch (...) {
      end(Event<Out>::failure(Error::fromCurrentException()));
    }
  }

 private:
  ObserverPtr<Out> downstream_;
  Disposable upstream_;
};

/// Calls `f(element, downstream)` for each element.
template <class In, class Out, class F>
class TransformNode final : public ElementwiseNode<In, Out> {
 public:
  TransformNode(ObserverPtr<Out> downstream, F f)
      : ElementwiseNode<In, Out>(std::move(downstream)), f_(std::move(f)) {}

  void onNext(const In& element) override {
    this->guarded([&] { f_(element, *this->downstream()); });
  }

 private:
  F f_;
};

template <class Out, class In, class F>
Observable<Out> transformed(const Observable<In>& upstream, F f) {
  return makeOperator<Out>(upstream, [f](ObserverPtr<Out> downstream) {
    return std::make_shared<TransformNode<In, Out, F>>(std::move(downstream), f);
  });
}

template <class T>
template <class F>
auto Observable<T>::map(F transform) const -> Observable<std::invoke_result_t<F&, const T&>> {
  using Out = std::invoke_result_t<F&, const T&>;
  return transformed<Out>(*this, [transform](const T& element, Observer<Out>& downstream) mutable {
    downstream.onNext(transform(element));
  });
}

template <class T>
template <class F>
auto Observable<T>::compactMap(F transform) const
    -> Observable<typename std::invoke_result_t<F&, const T&>::value_type> {
  using Out = typename std::invoke_result_t<F&, const T&>::value_type;
  return transformed<Out>(*this, [transform](const T& element, Observer<Out>& downstream) mutable {
    if (const auto result = transform(element)) downstream.onNext(*result);
  });
}

template <class T>
template <class F>
Observable<T> Observable<T>::filter(F isWanted) const {
  return transformed<T>(*this, [isWanted](const T& element, Observer<T>& downstream) mutable {
    if (isWanted(element)) downstream.onNext(element);
  });
}

template <class T>
Observable<T> Observable<T>::distinctUntilChanged() const {
  return transformed<T>(*this,
                        [last = std::optional<T>()](const T& element, Observer<T>& downstream) mutable {
                          if (last && *last == element) return;
                          last = element;
                          downstream.onNext(element);
                        });
}

template <class T>
class EffectNode final : public ElementwiseNode<T, T> {
 public:
  EffectNode(ObserverPtr<T> downstream, Handlers<T> effects)
      : ElementwiseNode<T, T>(std::move(downstream)), effects_(std::move(effects)) {}

  void onNext(const T& element) override {
    this->guarded([&] {
      if (effects_.onNext) effects_.onNext(element);
      this->downstream()->onNext(element);
    });
  }

  void onError(const Error& error) override {
    this->guarded([&] {
      if (effects_.onError) effects_.onError(error);
    });
    ElementwiseNode<T, T>::onError(error);
  }

  void onCompleted() override {
    this->guarded([&] {
      if (effects_.onCompleted) effects_.onCompleted();
    });
    ElementwiseNode<T, T>::onCompleted();
  }

 private:
  Handlers<T> effects_;
};

template <class T>
Observable<T> Observable<T>::doOn(Handlers<T> effects) const {
  return makeOperator<T>(*this, [effects = std::move(effects)](ObserverPtr<T> downstream) {
    return std::make_shared<EffectNode<T>>(std::move(downstream), effects);
  });
}

template <class T>
class MaterializeNode final : public ElementwiseNode<T, Event<T>> {
 public:
  using ElementwiseNode<T, Event<T>>::ElementwiseNode;

  void onNext(const T& element) override {
    this->guarded([&] { this->downstream()->onNext(Event<T>::next(element)); });
  }
  void onError(const Error& error) override { last(Event<T>::failure(error)); }
  void onCompleted() override { last(Event<T>::completed()); }

 private:
  void last(const Event<T>& event) {
    if (auto downstream = this->finish()) {
      downstream->onNext(event);
      downstream->onCompleted();
    }
  }
};

template <class T>
Observable<Event<T>> Observable<T>::materialize() const {
  return makeOperator<Event<T>>(*this, [](ObserverPtr<Event<T>> downstream) {
    return std::make_shared<MaterializeNode<T>>(std::move(downstream));
  });
}

template <class T>
class DematerializeNode final : public ElementwiseNode<Event<T>, T> {
 public:
  using ElementwiseNode<Event<T>, T>::ElementwiseNode;

  void onNext(const Event<T>& event) override {
    if (this->downstream() == nullptr) return;
    if (event.isTerminal()) {
      this->end(event);
    } else {
      this->downstream()->on(event);
    }
  }
};

template <class T>
template <class Out>
Observable<Out> Observable<T>::dematerialize() const {
  static_assert(std::is_same_v<T, Event<Out>>);
  return makeOperator<Out>(*this, [](ObserverPtr<Out> downstream) {
    return std::make_shared<DematerializeNode<Out>>(std::move(downstream));
  });
}

template <class T>
class CatchNode final : public ElementwiseNode<T, T> {
 public:
  CatchNode(ObserverPtr<T> downstream, T fallback)
      : ElementwiseNode<T, T>(std::move(downstream)), fallback_(std::move(fallback)) {}

  void onNext(const T& element) override {
    if (this->downstream() != nullptr) this->downstream()->onNext(element);
  }

  void onError(const Error&) override {
    if (auto downstream = this->finish()) {
      downstream->onNext(fallback_);
      downstream->onCompleted();
    }
  }

 private:
  T fallback_;
};

template <class T>
Observable<T> Observable<T>::catchAndReturn(T fallback) const {
  return makeOperator<T>(*this, [fallback = std::move(fallback)](ObserverPtr<T> downstream) {
    return std::make_shared<CatchNode<T>>(std::move(downstream), fallback);
  });
}

}  // namespace orrelo::reactive
