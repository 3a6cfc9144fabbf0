#pragma once

#include "reactive/Observer.h"

#include <atomic>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace orrelo::reactive {

/// Notifications that wait, in order. What comes after an end that waits is dropped.
template <class T>
class NotificationQueue {
 public:
  void push(Event<T> event) {
    if (events_.empty() || !events_.back().isTerminal()) events_.push_back(std::move(event));
  }
  bool empty() const { return events_.empty(); }
  Event<T> pop() {
    auto event = std::move(events_.front());
    events_.pop_front();
    return event;
  }
  void clear() { events_.clear(); }

 private:
  std::deque<Event<T>> events_;
};

/// Signals that wait are a count: a burst of them costs no memory.
template <>
class NotificationQueue<Unit> {
 public:
  void push(Event<Unit> event) {
    if (end_) return;
    if (event.isTerminal()) {
      end_ = std::move(event);
    } else {
      ++signals_;
    }
  }
  bool empty() const { return signals_ == 0 && !end_; }
  Event<Unit> pop() {
    if (signals_ > 0) {
      --signals_;
      return Event<Unit>::next({});
    }
    return *std::exchange(end_, std::nullopt);
  }
  void clear() {
    signals_ = 0;
    end_.reset();
  }

 private:
  std::size_t signals_ = 0;
  std::optional<Event<Unit>> end_;
};

/// Hands notifications that come from several threads to one observer, one at a time and in the order in
/// which they came, without holding a lock while it does. Nothing follows an end.
template <class T>
class SerialGate {
 public:
  explicit SerialGate(ObserverPtr<T> downstream) : downstream_(std::move(downstream)) {}

  void onNext(const T& element) {
    std::size_t idle = 0;
    if (waiting_.compare_exchange_strong(idle, 1, std::memory_order_acquire)) {
      if (downstream_ && !closed_.load(std::memory_order_relaxed)) downstream_->onNext(element);
      if (waiting_.fetch_sub(1, std::memory_order_acq_rel) != 1) drain();
      return;
    }
    deliver(Event<T>::next(element));
  }

  void onError(const Error& error) { deliver(Event<T>::failure(error)); }
  void onCompleted() { deliver(Event<T>::completed()); }

  /// Takes a place in the order. When it says true, the caller must call `drain` once it holds no lock.
  [[nodiscard]] bool enqueue(Event<T> event) {
    {
      const std::lock_guard lock(mutex_);
      queue_.push(std::move(event));
    }
    return waiting_.fetch_add(1, std::memory_order_acq_rel) == 0;
  }

  bool isClosed() const { return closed_.load(std::memory_order_acquire); }

  /// Nothing is delivered from now on, and the observer is let go, after the delivery that runs at most.
  void close() {
    closed_.store(true, std::memory_order_release);
    if (waiting_.fetch_add(1, std::memory_order_acq_rel) == 0) drain();
  }

  void drain() {
    std::size_t seen = 0;
    do {
      seen = waiting_.load(std::memory_order_acquire);
      while (auto event = take()) emit(*event);
      if (closed_.load(std::memory_order_acquire)) downstream_ = nullptr;
    } while (waiting_.fetch_sub(seen, std::memory_order_acq_rel) != seen);
  }

 private:
  void deliver(Event<T> event) {
    if (enqueue(std::move(event))) drain();
  }

  void emit(const Event<T>& event) {
    if (!downstream_ || closed_.load(std::memory_order_relaxed)) return;
    if (event.isTerminal()) {
      std::exchange(downstream_, nullptr)->on(event);
    } else {
      downstream_->on(event);
    }
  }

  std::optional<Event<T>> take() {
    const std::lock_guard lock(mutex_);
    return queue_.empty() ? std::nullopt : std::optional(queue_.pop());
  }

  // How many notifications are being delivered or wait. The thread that moved it away from 0 delivers, and
  // has downstream_ to itself until it moves it back.
  std::atomic<std::size_t> waiting_ = 0;
  std::atomic<bool> closed_ = false;
  std::mutex mutex_;
  NotificationQueue<T> queue_;
  ObserverPtr<T> downstream_;
};

}  // namespace orrelo::reactive
