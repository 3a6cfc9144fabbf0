#pragma once

#include "reactive/ObservableType.h"
#include "reactive/SerialGate.h"

namespace orrelo::reactive {

/// The ground of operators that emit from a timer as well as from their source. The source owns the node,
/// timers hold it weakly: when the source lets go, they find nobody.
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
  /// With mutex_ held: what is due goes to the gate. Says whether the gate must be drained.
  virtual bool timeCame() = 0;

  void startTimer(std::chrono::microseconds delay) {
    scheduler_->scheduleAfter(delay, [weak = this->weak_from_this()] {
      const auto self = weak.lock();
      if (!self) return;
      bool mustDrain = false;
      {
        const std::lock_guard lock(self->mutex_);
        mustDrain = self->timeCame();
      }
      if (mustDrain) self->gate_.drain();
    });
  }

  std::mutex mutex_;
  SchedulerPtr scheduler_;
  ObserverPtr<Out> observer_;  // until the subscription stands; the gate's from then on
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

  // One timer at a time: an emission moves the deadline, and a timer that finds it moved waits for the rest.
  bool timeCame() override {
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
      if (!pending_ && (!openAt_ || now >= *openAt_)) {
        openAt_ = now + period_;
        mustDrain = this->gate_.enqueue(Event<T>::next(element));
      } else if (latest_) {
        if (!pending_) this->startTimer(*openAt_ - now);
        pending_ = element;
      }
    }
    if (mustDrain) this->gate_.drain();
  }

  // What waits for the period's end goes out with the stream's end.
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
  bool timeCame() override {
    if (!pending_) return false;
    openAt_ = this->scheduler_->now() + period_;
    return this->gate_.enqueue(Event<T>::next(*std::exchange(pending_, std::nullopt)));
  }

  std::chrono::microseconds period_;
  bool latest_;
  std::optional<std::chrono::microseconds> openAt_;
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
