#pragma once

#include "base/Error.h"
#include "reactive/Disposable.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace orrelo::reactive {

/// The element of a stream that carries signals without a value.
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

  /// Null unless the notification is an element.
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

/// The receiver of a subscription. The source first calls `onSubscribe` once, with the handle that cancels
/// the source, so that even a source that emits before `subscribe` returns can be cancelled. It then calls
/// `onNext` for the elements, one at a time, and at most once `onError` or `onCompleted`, after which the
/// observer releases its source.
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

/// The callbacks of a chain's final subscriber. An error without a handler is dropped.
template <class T>
struct Handlers {
  std::function<void(const T&)> onNext = nullptr;
  std::function<void(const Error&)> onError = nullptr;
  std::function<void()> onCompleted = nullptr;
  std::function<void()> onDisposed = nullptr;
};

/// The final observer of a chain. It releases its handlers at the end or when it is disposed and calls none
/// of them afterwards. It throws no exceptions to the emitting source.
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

  // The stream has ended, so an exception thrown by its last handlers can no longer be reported.
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

extern template class ORRELO_EXPORT Subscriber<Unit>;  // see Subjects.h

}  // namespace orrelo::reactive
