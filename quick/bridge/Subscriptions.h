#pragma once

#include "reactive/ObservableType.h"

#include <functional>
#include <utility>
#include <vector>

namespace orrelo::quick {

/// What an object listens to, for as long as it lives.
class Subscriptions {
 public:
  Subscriptions() = default;
  Subscriptions(const Subscriptions&) = delete;
  Subscriptions& operator=(const Subscriptions&) = delete;
  ~Subscriptions() { clear(); }

  template <class T, class OnNext>
  void follow(const reactive::Observable<T>& stream, OnNext onNext) {
    handles_.push_back(stream.subscribe(std::function<void(const T&)>(std::move(onNext))));
  }
  void clear() {
    for (const auto& handle : std::exchange(handles_, {})) handle.dispose();
  }

 private:
  std::vector<reactive::Disposable> handles_;
};

}  // namespace orrelo::quick
