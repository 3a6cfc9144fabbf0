#pragma once

#include "reactive/ObservableType.h"
#include "reactive/SerialGate.h"

namespace orrelo::reactive {

/// The base of operators that emit from a timer as well as from their source. The source owns the node;
/// timers reference it weakly and do nothing once it is destroyed.
template <class In, class Out>
class TimedNode : public Observer<In>, public std::enable_shared_from_this<TimedNode<In, Out>> {
 public:
  TimedNode(ObserverPtr<Out> downstream, SchedulerPtr scheduler)
      : scheduler_(std::move(scheduler)), observer_(downstream), gate_(std::move(downstream)) {}

  void onSubscribe(Disposable upstream) override {
    started();
    std::exchange(observer_, nullptr)->onSubscribe(std::move(upstream));
  }

  void onError(const Error& error) override { gate_.onError(error); }

 protected:
  virtual void started() {}
  /// Queues the elements that are due. Called with mutex_ locked; returns true if the gate must be drained.
  virtual bool onTimer() = 0;

  void startTimer(std::chrono::microseconds delay) {
    scheduler_->scheduleAfter(delay, [weak = this->weak_from_this()] {
      const auto self = weak.lock();
      if (!self) return;
      bool mustDrain = false;
      {
        const std::lock_guard lock(self->mutex_);
        mustDrain = self->onTimer();
      }
      if (mustDrain) self->gate_.drain();
    });
  }

  std::mutex mutex_;
  SchedulerPtr scheduler_;
  ObserverPtr<Out> observer_;  // reset by onSubscribe; only the gate uses it from then on
  SerialGate<Out> gate_;
};

template <class T>
class BufferNode final : public TimedNode<T, std::vector<T>> {
 public:
  BufferNode(ObserverPtr<std::vector<T>> downstream, std::chrono::microseconds timeSpan, std::size_t count,
             SchedulerPtr scheduler)
      : TimedNode<T, std::vector<T>>(std::move(downstream), std::move(scheduler)),
        timeSpan_(timeSpan),
        count_(count) {}

  void onNext(const T& element) override {
    bool mustDrain = false;
    {
      const std::lock_guard lock(this->mutex_);
      elements_.push_back(element);
      if (elements_.size() >= count_) mustDrain = emit();
    }
    if (mustDrain) this->gate_.drain();
  }

  void onCompleted() override {
    std::vector<T> rest;
    {
      const std::lock_guard lock(this->mutex_);
      rest = std::exchange(elements_, {});
    }
    this->gate_.onNext(rest);
    this->gate_.onCompleted();
  }

 private:
  void started() override {
    deadline_ = this->scheduler_->now() + timeSpan_;
    this->startTimer(timeSpan_);
  }

  // There is one timer at a time. An emission postpones the deadline; a timer that fires before the new
  // deadline restarts for the remaining time.
  bool onTimer() override {
    const auto now = this->scheduler_->now();
    const bool mustDrain = now >= deadline_ && emit();
    this->startTimer(deadline_ - now);
    return mustDrain;
  }

  bool emit() {
    deadline_ = this->scheduler_->now() + timeSpan_;
    return this->gate_.enqueue(Event<std::vector<T>>::next(std::exchange(elements_, {})));
  }

  std::chrono::microseconds timeSpan_;
  std::size_t count_;
  std::chrono::microseconds deadline_{};
  std::vector<T> elements_;
};

template <class T>
Observable<std::vector<T>> Observable<T>::buffer(std::chrono::microseconds timeSpan, std::size_t count,
                                                 SchedulerPtr scheduler) const {
  return makeOperator<std::vector<T>>(*this, [=](ObserverPtr<std::vector<T>> downstream) {
    return std::make_shared<BufferNode<T>>(std::move(downstream), timeSpan, count, scheduler);
  });
}

template <class T>
class ThrottleNode final : public TimedNode<T, T> {
 public:
  ThrottleNode(ObserverPtr<T> downstream, std::chrono::microseconds period, bool latest,
               SchedulerPtr scheduler)
      : TimedNode<T, T>(std::move(downstream), std::move(scheduler)), period_(period), latest_(latest) {}

  void onNext(const T& element) override {
    bool mustDrain = false;
    {
      const std::lock_guard lock(this->mutex_);
      const auto now = this->scheduler_->now();
      if (!pending_ && (!nextPeriod_ || now >= *nextPeriod_)) {
        nextPeriod_ = now + period_;
        mustDrain = this->gate_.enqueue(Event<T>::next(element));
      } else if (latest_) {
        if (!pending_) this->startTimer(*nextPeriod_ - now);
        pending_ = element;
      }
    }
    if (mustDrain) this->gate_.drain();
  }

  // An element that waits for the end of the period is emitted at the end of the stream.
  void onCompleted() override {
    std::optional<T> last;
    {
      const std::lock_guard lock(this->mutex_);
      last = std::exchange(pending_, std::nullopt);
    }
    if (last) this->gate_.onNext(*last);
    this->gate_.onCompleted();
  }

 private:
  bool onTimer() override {
    if (!pending_) return false;
    nextPeriod_ = this->scheduler_->now() + period_;
    return this->gate_.enqueue(Event<T>::next(*std::exchange(pending_, std::nullopt)));
  }

  std::chrono::microseconds period_;
  bool latest_;
  std::optional<std::chrono::microseconds> nextPeriod_;
  std::optional<T> pending_;
};

template <class T>
Observable<T> Observable<T>::throttle(std::chrono::microseconds period, bool latest,
                                      SchedulerPtr scheduler) const {
  return makeOperator<T>(*this, [=](ObserverPtr<T> downstream) {
    return std::make_shared<ThrottleNode<T>>(std::move(downstream), period, latest, scheduler);
  });
}

}  // namespace orrelo::reactive
