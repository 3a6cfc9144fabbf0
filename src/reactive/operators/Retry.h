#pragma once

#include "reactive/ObservableType.h"

namespace orrelo::reactive {

/// Lives as long as the chain; each subscription to the source has its own Attempt. The node owns the source
/// in order to subscribe again, so a subject upstream lives until the chain ends or is disposed.
template <class T>
class RetryNode final : public std::enable_shared_from_this<RetryNode<T>> {
 public:
  RetryNode(Observable<T> source, std::size_t count, ObserverPtr<T> downstream, StartOn startOn)
      : source_(std::move(source)),
        remaining_(count),
        downstream_(std::move(downstream)),
        startOn_(std::move(startOn)) {}

  void start() {
    downstream_->onSubscribe(Disposable(upstream_));
    subscribe();
  }

 private:
  class Attempt final : public Observer<T> {
   public:
    explicit Attempt(std::shared_ptr<RetryNode> node) : node_(std::move(node)) {}

    void onSubscribe(Disposable upstream) override { node_->upstream_->set(std::move(upstream)); }
    void onNext(const T& element) override {
      if (node_) node_->downstream_->onNext(element);
    }
    void onError(const Error& error) override {
      if (const auto node = std::exchange(node_, nullptr)) node->failed(error);
    }
    void onCompleted() override {
      if (const auto node = std::exchange(node_, nullptr)) node->end(Event<T>::completed());
    }

   private:
    std::shared_ptr<RetryNode> node_;
  };

  void subscribe() { source_.subscribe(std::make_shared<Attempt>(this->shared_from_this()), startOn_); }

  void failed(const Error& error) {
    if (upstream_->isDisposed()) return;
    if (remaining_ <= 1) return end(Event<T>::failure(error));
    --remaining_;
    subscribe();
  }

  void end(const Event<T>& event) {
    downstream_->on(event);
    upstream_->dispose();
  }

  Observable<T> source_;
  std::size_t remaining_;  // subscriptions, including the current one
  ObserverPtr<T> downstream_;
  StartOn startOn_;
  std::shared_ptr<SerialDisposable> upstream_ = std::make_shared<SerialDisposable>();
};

template <class T>
Observable<T> Observable<T>::retry(std::size_t count) const {
  return makeSource<T>([source = *this, count](ObserverPtr<T> observer, const StartOn& startOn) {
    std::make_shared<RetryNode<T>>(source, count, std::move(observer), startOn)->start();
  });
}

}  // namespace orrelo::reactive
