#pragma once

#include "reactive/Observer.h"

#include <orrelo/Export.h>

#include <atomic>
#include <cstddef>
#include <list>
#include <mutex>
#include <optional>
#include <utility>

namespace orrelo::reactive {

/// A queue of notifications. Notifications pushed after a terminal one are dropped.
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
  std::list<Event<T>> events_;
};

/// Signals have no value, so that waiting ones are only counted: a burst of them needs no memory.
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

/// Serialises notifications from several threads: delivers them to one observer, one at a time and in the
/// order of their arrival, without holding a lock meanwhile. Nothing is delivered after the end.
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

  /// Queues a notification. If it returns true, the caller must call `drain` after releasing its locks.
  [[nodiscard]] bool enqueue(Event<T> event) {
    {
      const std::lock_guard lock(mutex_);
      queue_.push(std::move(event));
    }
    return waiting_.fetch_add(1, std::memory_order_acq_rel) == 0;
  }

  bool isClosed() const { return closed_.load(std::memory_order_acquire); }

  /// Stops the delivery and releases the observer; a delivery that is already running completes first.
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

  // The number of notifications that are queued or being delivered. The thread that increments it from 0
  // delivers them and has exclusive access to downstream_ until it has decremented it to 0.
  std::atomic<std::size_t> waiting_ = 0;
  std::atomic<bool> closed_ = false;
  std::mutex mutex_;
  NotificationQueue<T> queue_;
  ObserverPtr<T> downstream_;
};

extern template class ORRELO_EXPORT SerialGate<Unit>;  // see Subjects.h

}  // namespace orrelo::reactive
