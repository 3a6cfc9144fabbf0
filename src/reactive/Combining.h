#pragma once

#include "reactive/Observable.h"
#include "reactive/SerialGate.h"

#include <array>
#include <deque>

namespace orrelo::reactive {

enum class CombiningRule { latest, byPosition };

/// The common end of combineLatest and zip. Each source's input owns it; the handle that goes downstream
/// knows the sources alone.
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
        // Nothing can follow when all have ended, or when one ended that never had an element.
        isOver =
            std::get<I>(queues_).empty() || std::apply([](auto... each) { return (each && ...); }, ended_);
      } else {
        isOver = isExhausted(std::index_sequence_for<Ts...>());
      }
    }
    if (isOver) end(Event<Row>::completed());
  }

  // zip: an input has ended and none of its elements waits for a partner.
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
  std::tuple<std::deque<Ts>...> queues_;  // for combineLatest at most one element each
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

/// Emits once every source has emitted, and then at each element of either, the latest of each.
template <class... Ts>
Observable<std::tuple<Ts...>> combineLatest(Observable<Ts>... sources) {
  return combined<CombiningRule::latest>(std::move(sources)...);
}

/// Pairs elements by position.
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

/// All elements of several streams; ends with the last of them, or with the first error.
template <class T>
Observable<T> merge(std::vector<Observable<T>> sources) {
  return makeSource<T>([sources = std::move(sources)](ObserverPtr<T> observer, const StartOn& startOn) {
    auto node = std::make_shared<MergeNode<T>>(observer, sources.size());
    observer->onSubscribe(node->handle());
    node->start(sources, startOn);
  });
}

}  // namespace orrelo::reactive
