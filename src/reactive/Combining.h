#pragma once

#include "reactive/Observable.h"
#include "reactive/SerialGate.h"

#include <array>
#include <deque>

namespace orrelo::reactive {

enum class CombiningRule { latest, byPosition };

/// The observer of all sources of combineLatest or zip. The inputs own the node; the handle given downstream
/// only references the sources' subscriptions, so that there is no reference cycle.
template <CombiningRule rule, class... Ts>
class CombiningNode final : public std::enable_shared_from_this<CombiningNode<rule, Ts...>> {
 public:
  using Row = std::tuple<Ts...>;

  explicit CombiningNode(ObserverPtr<Row> downstream) : gate_(std::move(downstream)) {}

  Disposable handle() const { return Disposable(upstreams_); }

  void start(const std::tuple<Observable<Ts>...>& sources, const StartOn& startOn) {
    startEach(sources, startOn, std::index_sequence_for<Ts...>());
  }

 private:
  template <std::size_t I>
  using ElementAt = std::tuple_element_t<I, Row>;

  template <std::size_t I>
  class Input final : public Observer<ElementAt<I>> {
   public:
    explicit Input(std::shared_ptr<CombiningNode> node) : node_(std::move(node)) {}

    void onSubscribe(Disposable upstream) override { node_->upstreams_->insert(std::move(upstream)); }
    void onNext(const ElementAt<I>& element) override {
      if (node_) node_->template take<I>(element);
    }
    void onError(const Error& error) override {
      if (const auto node = std::exchange(node_, nullptr)) node->end(Event<Row>::failure(error));
    }
    void onCompleted() override {
      if (const auto node = std::exchange(node_, nullptr)) node->template inputEnded<I>();
    }

   private:
    std::shared_ptr<CombiningNode> node_;
  };

  template <std::size_t... Is>
  void startEach(const std::tuple<Observable<Ts>...>& sources, const StartOn& startOn,
                 std::index_sequence<Is...>) {
    (std::get<Is>(sources).subscribe(std::make_shared<Input<Is>>(this->shared_from_this()), startOn), ...);
  }

  template <std::size_t I>
  void take(const ElementAt<I>& element) {
    bool mustDrain = false;
    bool isOver = false;
    {
      const std::lock_guard lock(mutex_);
      auto& queue = std::get<I>(queues_);
      if (rule == CombiningRule::latest) queue.clear();
      queue.push_back(element);
      const bool isFull = std::apply([](const auto&... each) { return (!each.empty() && ...); }, queues_);
      if (isFull) {
        mustDrain = gate_.enqueue(
            Event<Row>::next(std::apply([](auto&... each) { return Row(each.front()...); }, queues_)));
        if (rule == CombiningRule::byPosition) {
          std::apply([](auto&... each) { (each.pop_front(), ...); }, queues_);
          isOver = isExhausted(std::index_sequence_for<Ts...>());
        }
      }
    }
    if (mustDrain) gate_.drain();
    if (isOver) end(Event<Row>::completed());
  }

  template <std::size_t I>
  void inputEnded() {
    bool isOver = false;
    {
      const std::lock_guard lock(mutex_);
      ended_[I] = true;
      if (rule == CombiningRule::latest) {
        // No further row is possible once all inputs have ended, or one has ended without an element.
        isOver =
            std::get<I>(queues_).empty() || std::apply([](auto... each) { return (each && ...); }, ended_);
      } else {
        isOver = isExhausted(std::index_sequence_for<Ts...>());
      }
    }
    if (isOver) end(Event<Row>::completed());
  }

  // zip: true if an input has ended and all its elements have been paired.
  template <std::size_t... Is>
  bool isExhausted(std::index_sequence<Is...>) const {
    return ((ended_[Is] && std::get<Is>(queues_).empty()) || ...);
  }

  void end(const Event<Row>& event) {
    if (gate_.enqueue(event)) gate_.drain();
    upstreams_->dispose();
  }

  SerialGate<Row> gate_;
  std::shared_ptr<CompositeDisposable> upstreams_ = std::make_shared<CompositeDisposable>();
  std::mutex mutex_;
  std::tuple<std::deque<Ts>...> queues_;  // at most one element each for combineLatest
  std::array<bool, sizeof...(Ts)> ended_{};
};

template <CombiningRule rule, class... Ts>
Observable<std::tuple<Ts...>> combined(Observable<Ts>... sources) {
  using Row = std::tuple<Ts...>;
  return makeSource<Row>(
      [sources = std::make_tuple(std::move(sources)...)](ObserverPtr<Row> observer, const StartOn& startOn) {
        auto node = std::make_shared<CombiningNode<rule, Ts...>>(observer);
        observer->onSubscribe(node->handle());
        node->start(sources, startOn);
      });
}

/// Emits the latest elements of all sources at each new element, once every source has emitted.
template <class... Ts>
Observable<std::tuple<Ts...>> combineLatest(Observable<Ts>... sources) {
  return combined<CombiningRule::latest>(std::move(sources)...);
}

/// Combines the elements of all sources by their position.
template <class... Ts>
Observable<std::tuple<Ts...>> zip(Observable<Ts>... sources) {
  return combined<CombiningRule::byPosition>(std::move(sources)...);
}

template <class T>
class MergeNode final : public std::enable_shared_from_this<MergeNode<T>> {
 public:
  MergeNode(ObserverPtr<T> downstream, std::size_t count) : gate_(std::move(downstream)), running_(count) {}

  Disposable handle() const { return Disposable(upstreams_); }

  void start(const std::vector<Observable<T>>& sources, const StartOn& startOn) {
    if (sources.empty()) end(Event<T>::completed());
    for (const auto& source : sources) {
      if (upstreams_->isDisposed()) return;
      source.subscribe(std::make_shared<Input>(this->shared_from_this()), startOn);
    }
  }

 private:
  class Input final : public Observer<T> {
   public:
    explicit Input(std::shared_ptr<MergeNode> node) : node_(std::move(node)) {}

    void onSubscribe(Disposable upstream) override { node_->upstreams_->insert(std::move(upstream)); }
    void onNext(const T& element) override {
      if (node_) node_->gate_.onNext(element);
    }
    void onError(const Error& error) override {
      if (const auto node = std::exchange(node_, nullptr)) node->end(Event<T>::failure(error));
    }
    void onCompleted() override {
      if (const auto node = std::exchange(node_, nullptr); node && --node->running_ == 0) {
        node->end(Event<T>::completed());
      }
    }

   private:
    std::shared_ptr<MergeNode> node_;
  };

  void end(const Event<T>& event) {
    if (gate_.enqueue(event)) gate_.drain();
    upstreams_->dispose();
  }

  SerialGate<T> gate_;
  std::atomic<std::size_t> running_;
  std::shared_ptr<CompositeDisposable> upstreams_ = std::make_shared<CompositeDisposable>();
};

/// Emits the elements of all sources. Completes when all sources have completed; fails with the first error.
template <class T>
Observable<T> merge(std::vector<Observable<T>> sources) {
  return makeSource<T>([sources = std::move(sources)](ObserverPtr<T> observer, const StartOn& startOn) {
    auto node = std::make_shared<MergeNode<T>>(observer, sources.size());
    observer->onSubscribe(node->handle());
    node->start(sources, startOn);
  });
}

}  // namespace orrelo::reactive
