#pragma once

#include "reactive/ObservableType.h"
#include "reactive/SerialGate.h"

#include <atomic>

namespace orrelo::reactive {

template <class T>
Observable<T> Observable<T>::subscribeOn(SchedulerPtr scheduler) const {
  return makeSource<T>(
      [source = *this, scheduler = std::move(scheduler)](ObserverPtr<T> observer, const StartOn&) {
        source.subscribe(std::move(observer), scheduler);
      });
}

/// Queues the notifications and delivers them from one scheduled task at a time.
template <class T>
class ObserveOnNode final : public Observer<T>, public std::enable_shared_from_this<ObserveOnNode<T>> {
 public:
  ObserveOnNode(ObserverPtr<T> downstream, SchedulerPtr scheduler)
      : downstream_(std::move(downstream)), scheduler_(std::move(scheduler)) {}

  void onSubscribe(Disposable upstream) override {
    const auto downstream = downstream_;  // the callee may dispose of the subscription
    downstream->onSubscribe(
        Disposable(std::make_shared<Handle>(std::move(upstream), this->weak_from_this())));
  }
  void onNext(const T& element) override { enqueue(Event<T>::next(element)); }
  void onError(const Error& error) override { enqueue(Event<T>::failure(error)); }
  void onCompleted() override { enqueue(Event<T>::completed()); }

 private:
  class Handle final : public Cancelable {
   public:
    Handle(Disposable upstream, std::weak_ptr<ObserveOnNode> node)
        : upstream_(std::move(upstream)), node_(std::move(node)) {}

    void dispose() override {
      disposed_ = true;
      upstream_.dispose();
      if (const auto node = node_.lock()) node->close();
    }
    bool isDisposed() const override { return disposed_ || node_.expired(); }

   private:
    std::atomic<bool> disposed_ = false;
    Disposable upstream_;
    std::weak_ptr<ObserveOnNode> node_;
  };

  void enqueue(Event<T> event) {
    {
      const std::lock_guard lock(mutex_);
      if (!downstream_) return;
      queue_.push(std::move(event));
      if (std::exchange(scheduled_, true)) return;
    }
    scheduler_->schedule([self = this->shared_from_this()] { self->drain(); });
  }

  void drain() {
    while (true) {
      ObserverPtr<T> downstream;
      std::optional<Event<T>> event;
      {
        const std::lock_guard lock(mutex_);
        if (!downstream_ || queue_.empty()) {
          scheduled_ = false;
          return;
        }
        event = queue_.pop();
        downstream = event->isTerminal() ? std::exchange(downstream_, nullptr) : downstream_;
      }
      downstream->on(*event);
    }
  }

  void close() {
    ObserverPtr<T> downstream;  // destroyed outside the lock
    NotificationQueue<T> queue;
    const std::lock_guard lock(mutex_);
    downstream = std::exchange(downstream_, nullptr);
    std::swap(queue, queue_);
  }

  std::mutex mutex_;
  NotificationQueue<T> queue_;
  bool scheduled_ = false;
  ObserverPtr<T> downstream_;
  SchedulerPtr scheduler_;
};

template <class T>
Observable<T> Observable<T>::observeOn(SchedulerPtr scheduler) const {
  return makeOperator<T>(*this, [scheduler = std::move(scheduler)](ObserverPtr<T> downstream) {
    return std::make_shared<ObserveOnNode<T>>(std::move(downstream), scheduler);
  });
}

}  // namespace orrelo::reactive
