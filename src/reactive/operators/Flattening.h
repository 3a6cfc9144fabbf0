#pragma once

#include "reactive/ObservableType.h"
#include "reactive/SerialGate.h"

#include <cstdint>

namespace orrelo::reactive {

/// How many inner streams run concurrently, and how new ones are handled meanwhile.
enum class FlatteningRule { mergeAll, latestOnly, limited };

/// The observer of the outer stream of flatMap, flatMapLatest and concatMap. It is owned by the source and by
/// the observers of the inner streams. The handle given downstream is `upstreams_`, which only references the
/// sources' subscriptions, so that there is no reference cycle.
template <class In, class Out>
class FlatteningNode final : public Observer<In>,
                             public std::enable_shared_from_this<FlatteningNode<In, Out>> {
 public:
  using Transform = std::function<Observable<Out>(const In&)>;

  /// `limit` is how many inner streams of the rule `limited` run at once.
  FlatteningNode(FlatteningRule rule, std::size_t limit, ObserverPtr<Out> downstream, Transform transform)
      : rule_(rule),
        limit_(limit),
        observer_(downstream),
        gate_(std::move(downstream)),
        transform_(std::move(transform)) {}

  void onSubscribe(Disposable upstream) override {
    upstreams_->insert(std::move(upstream));
    // Only the gate references the observer from here on.
    std::exchange(observer_, nullptr)->onSubscribe(Disposable(upstreams_));
  }

  void onNext(const In& element) override {
    if (upstreams_->isDisposed()) return;
    if (rule_ == FlatteningRule::limited && !tryStart(element)) return;
    if (rule_ == FlatteningRule::latestOnly) exchangeLatest({}).dispose();
    start(element);
    if (rule_ == FlatteningRule::limited) startWaiting();
  }

  void onError(const Error& error) override { fail(error); }

  void onCompleted() override {
    bool isLast = false;
    {
      const std::lock_guard lock(mutex_);
      outerEnded_ = true;
      isLast = hasNothingLeft();
    }
    if (isLast) complete();
  }

 private:
  class InnerNode final : public Observer<Out> {
   public:
    InnerNode(std::shared_ptr<FlatteningNode> outer, std::uint64_t generation)
        : outer_(std::move(outer)), generation_(generation) {}

    void onSubscribe(Disposable upstream) override {
      if (!outer_) return upstream.dispose();
      outer_->upstreams_->insert(upstream);
      if (outer_->rule_ == FlatteningRule::latestOnly) outer_->exchangeLatest(std::move(upstream));
    }
    void onNext(const Out& element) override {
      if (outer_) outer_->innerNext(generation_, element);
    }
    void onError(const Error& error) override {
      if (const auto outer = std::exchange(outer_, nullptr)) outer->innerFailed(generation_, error);
    }
    void onCompleted() override {
      if (const auto outer = std::exchange(outer_, nullptr)) outer->innerCompleted(generation_);
    }

   private:
    std::shared_ptr<FlatteningNode> outer_;
    std::uint64_t generation_;
  };

  // limited: returns false and queues the element if it is not its turn.
  bool tryStart(const In& element) {
    const std::lock_guard lock(mutex_);
    if (running_ < limit_ && waiting_.empty() && !starting_) return starting_ = true;
    waiting_.push(Event<In>::next(element));
    return false;
  }

  Disposable exchangeLatest(Disposable inner) {
    const std::lock_guard lock(mutex_);
    return std::exchange(latest_, std::move(inner));
  }

  bool hasNothingLeft() const { return outerEnded_ && running_ == 0 && !starting_ && waiting_.empty(); }

  // Loops instead of recursing, so that many queued elements whose inner streams end at once need no stack.
  void startWaiting() {
    while (true) {
      std::optional<Event<In>> next;
      bool isLast = false;
      {
        const std::lock_guard lock(mutex_);
        if (upstreams_->isDisposed()) waiting_.clear();
        if (running_ < limit_ && !waiting_.empty()) {
          next = waiting_.pop();
        } else {
          starting_ = false;
          isLast = hasNothingLeft();
        }
      }
      if (isLast) complete();
      if (!next) return;
      start(*next->element());
    }
  }

  void start(const In& element) {
    std::uint64_t generation = 0;
    {
      const std::lock_guard lock(mutex_);
      generation = ++generation_;
      // latestOnly: the previous inner stream has been disposed.
      running_ = rule_ == FlatteningRule::latestOnly ? 1 : running_ + 1;
    }
    try {
      transform_(element).subscribe(std::make_shared<InnerNode>(this->shared_from_this(), generation),
                                    nullptr);
    } catch (...) {
      fail(Error::fromCurrentException());
    }
  }

  bool isCurrent(std::uint64_t generation) const {
    return rule_ != FlatteningRule::latestOnly || generation == generation_;
  }

  void innerNext(std::uint64_t generation, const Out& element) {
    if (rule_ != FlatteningRule::latestOnly) return gate_.onNext(element);
    enqueueIfCurrent(generation, Event<Out>::next(element));
  }

  void innerFailed(std::uint64_t generation, const Error& error) {
    if (!upstreams_->isDisposed() && enqueueIfCurrent(generation, Event<Out>::failure(error)))
      upstreams_->dispose();
  }

  // Queues under the lock, so that no element of a previous inner stream can follow one of the next stream.
  bool enqueueIfCurrent(std::uint64_t generation, Event<Out> event) {
    bool mustDrain = false;
    {
      const std::lock_guard lock(mutex_);
      if (!isCurrent(generation)) return false;
      mustDrain = gate_.enqueue(std::move(event));
    }
    if (mustDrain) gate_.drain();
    return true;
  }

  void innerCompleted(std::uint64_t generation) {
    bool isLast = false;
    bool mayStart = false;
    {
      const std::lock_guard lock(mutex_);
      if (!isCurrent(generation)) return;
      --running_;
      isLast = hasNothingLeft();
      mayStart = running_ < limit_ && !starting_ && !waiting_.empty();
      starting_ = starting_ || mayStart;
    }
    if (isLast) return complete();
    if (mayStart) startWaiting();
  }

  void complete() {
    gate_.onCompleted();
    upstreams_->dispose();
  }

  void fail(const Error& error) {
    if (upstreams_->isDisposed()) return;
    gate_.onError(error);
    upstreams_->dispose();
  }

  const FlatteningRule rule_;
  const std::size_t limit_;
  ObserverPtr<Out> observer_;
  SerialGate<Out> gate_;
  Transform transform_;
  std::shared_ptr<CompositeDisposable> upstreams_ = std::make_shared<CompositeDisposable>();
  std::mutex mutex_;
  Disposable latest_;             // the current inner stream of latestOnly
  std::uint64_t generation_ = 0;  // counts the inner streams
  std::size_t running_ = 0;
  bool outerEnded_ = false;
  bool starting_ = false;
  NotificationQueue<In> waiting_;
};

template <class T, class F>
auto flattened(FlatteningRule rule, const Observable<T>& upstream, F transform, std::size_t limit = 1) {
  using Out = typename std::invoke_result_t<F&, const T&>::Element;
  using Node = FlatteningNode<T, Out>;
  return makeOperator<Out>(
      upstream,
      [rule, limit, transform = typename Node::Transform(std::move(transform))](ObserverPtr<Out> downstream) {
        return std::make_shared<Node>(rule, limit, std::move(downstream), transform);
      });
}

template <class T>
template <class F>
auto Observable<T>::flatMap(F transform) const -> std::invoke_result_t<F&, const T&> {
  return flattened(FlatteningRule::mergeAll, *this, std::move(transform));
}

template <class T>
template <class F>
auto Observable<T>::flatMap(F transform, std::size_t limit) const -> std::invoke_result_t<F&, const T&> {
  return flattened(FlatteningRule::limited, *this, std::move(transform), limit);
}

template <class T>
template <class F>
auto Observable<T>::flatMapLatest(F transform) const -> std::invoke_result_t<F&, const T&> {
  return flattened(FlatteningRule::latestOnly, *this, std::move(transform));
}

template <class T>
template <class F>
auto Observable<T>::concatMap(F transform) const -> std::invoke_result_t<F&, const T&> {
  return flattened(FlatteningRule::limited, *this, std::move(transform));
}

}  // namespace orrelo::reactive
