#pragma once

#include "base/Error.h"
#include "reactive/Disposable.h"

#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace orrelo::reactive {

/// The element of a stream that only signals.
struct Unit {
  friend bool operator==(Unit, Unit) = default;
};

/// One notification as a value: an element, an error, or the completion.
template <class T>
class Event {
 public:
  static Event next(T element) { return Event(Body(std::in_place_index<0>, std::move(element))); }
  static Event failure(Error error) { return Event(Body(std::in_place_index<1>, std::move(error))); }
  static Event completed() { return Event(Body(std::in_place_index<2>)); }

  /// Null for a notification of another kind.
  const T* element() const { return std::get_if<0>(&body_); }
  const Error* error() const { return std::get_if<1>(&body_); }
  bool isCompleted() const { return body_.index() == 2; }
  bool isTerminal() const { return body_.index() != 0; }

  friend bool operator==(const Event&, const Event&) = default;

 private:
  using Body = std::variant<T, Error, std::monostate>;
  explicit Event(Body body) : body_(std::move(body)) {}

  Body body_;
};

/// One end of a subscription. Its source calls `onSubscribe` once and before all else, with the handle that
/// cancels the source, so that even a source that emits before `subscribe` returns can be stopped. Then come
/// elements, one at a time, and at most one of the two ends, after which it lets its source go.
template <class T>
class Observer {
 public:
  using Element = T;

  virtual ~Observer() = default;

  virtual void onSubscribe(Disposable upstream) = 0;
  virtual void onNext(const T& element) = 0;
  virtual void onError(const Error& error) = 0;
  virtual void onCompleted() = 0;

  void on(const Event<T>& event) {
    if (event.element() != nullptr) {
      onNext(*event.element());
    } else if (event.error() != nullptr) {
      onError(*event.error());
    } else {
      onCompleted();
    }
  }
};

template <class T>
using ObserverPtr = std::shared_ptr<Observer<T>>;

/// What a chain's last subscriber does. An error without a handler is dropped.
template <class T>
struct Handlers {
  std::function<void(const T&)> onNext = nullptr;
  std::function<void(const Error&)> onError = nullptr;
  std::function<void()> onCompleted = nullptr;
  std::function<void()> onDisposed = nullptr;
};

/// The end of a chain. It lets its handlers go at the end or when it is disposed of; none is called after
/// that. No exception leaves it for whoever emits.
template <class T>
class Subscriber final : public Observer<T>, public Cancelable {
 public:
  explicit Subscriber(Handlers<T> handlers) : handlers_(std::make_shared<Handlers<T>>(std::move(handlers))) {}

  void onSubscribe(Disposable upstream) override {
    {
      const std::lock_guard lock(mutex_);
      if (handlers_) {
        upstream_ = std::move(upstream);
        return;
      }
    }
    upstream.dispose();
  }

  void onNext(const T& element) override {
    std::shared_ptr<Handlers<T>> handlers;
    {
      const std::lock_guard lock(mutex_);
      handlers = handlers_;
    }
    if (!handlers || !handlers->onNext) return;
    try {
      handlers->onNext(element);
    } catch (...) {
      onError(Error::fromCurrentException());
    }
  }

  void onError(const Error& error) override {
    finish([&error](Handlers<T>& handlers) {
      if (handlers.onError) handlers.onError(error);
    });
  }

  void onCompleted() override {
    finish([](Handlers<T>& handlers) {
      if (handlers.onCompleted) handlers.onCompleted();
    });
  }

  void dispose() override {
    finish([](Handlers<T>&) {});
  }

  bool isDisposed() const override {
    const std::lock_guard lock(mutex_);
    return !handlers_;
  }

 private:
  template <class Last>
  void finish(Last last) {
    std::shared_ptr<Handlers<T>> handlers;
    Disposable upstream;
    {
      const std::lock_guard lock(mutex_);
      handlers = std::exchange(handlers_, nullptr);
      upstream = std::exchange(upstream_, {});
    }
    if (!handlers) return;
    guarded([&] { last(*handlers); });
    upstream.dispose();
    guarded([&] {
      if (handlers->onDisposed) handlers->onDisposed();
    });
  }

  // The stream has ended: what its last handlers throw has nowhere to go.
  template <class Step>
  static void guarded(Step step) {
    try {
      step();
    } catch (...) {
    }
  }

  mutable std::mutex mutex_;
  std::shared_ptr<Handlers<T>> handlers_;
  Disposable upstream_;
};

}  // namespace orrelo::reactive
