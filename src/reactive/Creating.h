#pragma once

#include "reactive/ObservableType.h"
#include "reactive/SerialGate.h"

#include <cstdint>

namespace orrelo::reactive {

/// The sink passed to the callback of `create`; copies share it. Drops notifications after the end of the
/// stream or its disposal. Any thread.
template <class T>
class AnyObserver {
 public:
  class Sink;
  explicit AnyObserver(std::shared_ptr<Sink> sink) : sink_(std::move(sink)) {}

  void onNext(const T& element) const { sink_->gate.onNext(element); }
  void onError(const Error& error) const { end(Event<T>::failure(error)); }
  void onCompleted() const { end(Event<T>::completed()); }
  void on(const Event<T>& event) const { event.isTerminal() ? end(event) : onNext(*event.element()); }
  /// True if the subscription was disposed; lets a source that emits in a loop stop.
  bool isDisposed() const { return sink_->cancel->isDisposed(); }

  class Sink {
   public:
    Sink(ObserverPtr<T> downstream, std::shared_ptr<SerialDisposable> handle)
        : gate(std::move(downstream)), cancel(std::move(handle)) {}
    SerialGate<T> gate;
    std::shared_ptr<SerialDisposable> cancel;
  };

 private:
  void end(const Event<T>& event) const {
    const auto sink = sink_;
    if (sink->gate.enqueue(event)) sink->gate.drain();
    sink->cancel->dispose();
  }

  std::shared_ptr<Sink> sink_;
};

/// The subscription to a `create`: disposes the Disposable that the callback returned, and closes the sink.
template <class T>
class CreateHandle final : public Cancelable {
 public:
  CreateHandle(std::shared_ptr<SerialDisposable> cancel, std::weak_ptr<typename AnyObserver<T>::Sink> sink)
      : cancel_(std::move(cancel)), sink_(std::move(sink)) {}

  void dispose() override {
    cancel_->dispose();
    if (const auto sink = sink_.lock()) sink->gate.close();
  }
  bool isDisposed() const override { return cancel_->isDisposed(); }

 private:
  std::shared_ptr<SerialDisposable> cancel_;
  std::weak_ptr<typename AnyObserver<T>::Sink> sink_;
};

/// A cold stream: each subscription calls `callback` with a sink. The Disposable that the callback returns is
/// disposed at the end of the stream or together with the subscription.
template <class T, class Callback>
Observable<T> create(Callback callback) {
  return makeSource<T>([callback = std::move(callback)](ObserverPtr<T> observer, const StartOn& startOn) {
    auto cancel = std::make_shared<SerialDisposable>();
    auto sink = std::make_shared<typename AnyObserver<T>::Sink>(observer, cancel);
    observer->onSubscribe(Disposable(std::make_shared<CreateHandle<T>>(cancel, sink)));
    auto start = [callback, sink] {
      if (sink->cancel->isDisposed()) return;
      try {
        sink->cancel->set(callback(AnyObserver<T>(sink)));
      } catch (...) {
        AnyObserver<T>(sink).onError(Error::fromCurrentException());
      }
    };
    if (startOn) {
      startOn->schedule(std::move(start));
    } else {
      start();
    }
  });
}

/// Emits one element and completes.
template <class T>
Observable<T> just(T element) {
  return create<T>([element = std::move(element)](AnyObserver<T> observer) {
    observer.onNext(element);
    observer.onCompleted();
    return Disposables::create();
  });
}

template <class T>
Observable<T> empty() {
  return create<T>([](AnyObserver<T> observer) {
    observer.onCompleted();
    return Disposables::create();
  });
}

/// Fails immediately.
template <class T>
Observable<T> error(Error error) {
  return create<T>([error = std::move(error)](AnyObserver<T> observer) {
    observer.onError(error);
    return Disposables::create();
  });
}

/// Emits 0, 1, 2 … on `scheduler`, one per `period`; the first after one period.
Observable<std::int64_t> interval(std::chrono::microseconds period, SchedulerPtr scheduler);

}  // namespace orrelo::reactive
