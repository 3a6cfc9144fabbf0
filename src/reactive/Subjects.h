#pragma once

#include "reactive/Observable.h"
#include "reactive/SerialGate.h"

#include <orrelo/Export.h>

#include <algorithm>
#include <cstdint>

namespace orrelo::reactive {

/// The shared implementation of both subjects: the list of observers. Emitting uses a snapshot of the list
/// and holds no lock.
template <class T>
class SubjectCore : public std::enable_shared_from_this<SubjectCore<T>> {
 public:
  explicit SubjectCore(std::optional<T> replayed)
      : replays_(replayed.has_value()), replayed_(std::move(replayed)) {}

  void attach(ObserverPtr<T> observer) {
    auto gate = std::make_shared<SerialGate<T>>(observer);
    observer->onSubscribe(Disposable(std::make_shared<Registration>(this->weak_from_this(), gate)));
    bool mustDrain = false;
    {
      const std::lock_guard lock(mutex_);
      if (end_) {
        mustDrain = gate->enqueue(*end_);
      } else {
        if (replayed_) mustDrain = gate->enqueue(Event<T>::next(*replayed_));
        auto gates = std::make_shared<Gates>(*gates_);
        std::erase_if(*gates, [](const auto& attached) { return attached->isClosed(); });
        gates->push_back(gate);
        gates_ = std::move(gates);
      }
    }
    if (mustDrain) gate->drain();
  }

  void onNext(const T& element) {
    if (replays_) return onNextReplayed(element);
    std::shared_ptr<const Gates> gates;
    {
      const std::lock_guard lock(mutex_);
      gates = gates_;
    }
    for (const auto& gate : *gates) gate->onNext(element);
  }

  void end(const Event<T>& event) {
    std::shared_ptr<const Gates> gates;
    {
      const std::lock_guard lock(mutex_);
      if (end_) return;
      end_ = event;
      gates = std::exchange(gates_, std::make_shared<Gates>());
    }
    for (const auto& gate : *gates) {
      if (gate->enqueue(event)) gate->drain();
    }
  }

  std::optional<T> replayed() const {
    const std::lock_guard lock(mutex_);
    return replayed_;
  }

  bool hasObservers() const {
    const std::lock_guard lock(mutex_);
    return std::any_of(gates_->begin(), gates_->end(), [](const auto& gate) { return !gate->isClosed(); });
  }

 private:
  using Gates = std::vector<std::shared_ptr<SerialGate<T>>>;

  class Registration final : public Cancelable {
   public:
    Registration(std::weak_ptr<SubjectCore> core, std::weak_ptr<SerialGate<T>> gate)
        : core_(std::move(core)), gate_(std::move(gate)) {}

    void dispose() override {
      disposed_ = true;
      const auto gate = gate_.lock();
      if (!gate) return;
      gate->close();
      if (const auto core = core_.lock()) core->detach(gate);
    }

    // Does not lock() the weak pointer: the caller might become the last owner of the gate and would then
    // destroy it together with all its observers.
    bool isDisposed() const override { return disposed_ || gate_.expired(); }

   private:
    std::atomic<bool> disposed_ = false;
    std::weak_ptr<SubjectCore> core_;
    std::weak_ptr<SerialGate<T>> gate_;
  };

  // Sets the value and queues it for all observers under one lock, so that an observer that subscribes
  // concurrently receives each value once and in order.
  void onNextReplayed(const T& element) {
    std::vector<std::shared_ptr<SerialGate<T>>> toDrain;
    std::optional<T> value(element);  // receives the previous value, destroyed outside the lock
    {
      const std::lock_guard lock(mutex_);
      if (end_) return;
      std::swap(replayed_, value);
      for (const auto& gate : *gates_) {
        if (gate->enqueue(Event<T>::next(element))) toDrain.push_back(gate);
      }
    }
    for (const auto& gate : toDrain) gate->drain();
  }

  void detach(const std::shared_ptr<SerialGate<T>>& gate) {
    std::shared_ptr<const Gates> former;  // destroyed outside the lock
    const std::lock_guard lock(mutex_);
    auto gates = std::make_shared<Gates>(*gates_);
    std::erase(*gates, gate);
    former = std::exchange(gates_, std::move(gates));
  }

  const bool replays_;
  mutable std::mutex mutex_;
  std::shared_ptr<const Gates> gates_ = std::make_shared<Gates>();
  std::optional<T> replayed_;
  std::optional<Event<T>> end_;
};

/// The common base of the subjects: a handle to the core. Calls subscribers on the emitting thread. Any
/// thread.
template <class T>
class Subject {
 public:
  void onNext(const T& element) const { core_->onNext(element); }
  void onError(const Error& error) const { core_->end(Event<T>::failure(error)); }
  void onCompleted() const { core_->end(Event<T>::completed()); }
  bool hasObservers() const { return core_->hasObservers(); }

  Observable<T> asObservable() const {
    return makeSource<T>(
        [core = core_](ObserverPtr<T> observer, const StartOn&) { core->attach(std::move(observer)); });
  }

 protected:
  explicit Subject(std::optional<T> replayed)
      : core_(std::make_shared<SubjectCore<T>>(std::move(replayed))) {}

  std::shared_ptr<SubjectCore<T>> core_;
};

/// A hot stream: a subscriber receives only the elements emitted after its subscription. After the end it
/// receives only the terminal notification.
template <class T>
class PublishSubject : public Subject<T> {
 public:
  PublishSubject() : Subject<T>(std::nullopt) {}
};

/// A hot stream that stores the latest element and emits it first to each new subscriber.
template <class T>
class BehaviorSubject : public Subject<T> {
 public:
  explicit BehaviorSubject(T initial) : Subject<T>(std::move(initial)) {}

  T value() const { return *this->core_->replayed(); }
};

// Streams of signals are used nearly everywhere, so their classes are compiled once, in Subjects.cpp. Each
// class is declared so beside its template: a source that does not see the declaration would emit a copy that
// is not exported.
extern template class ORRELO_EXPORT SubjectCore<Unit>;
extern template class ORRELO_EXPORT Subject<Unit>;

}  // namespace orrelo::reactive
