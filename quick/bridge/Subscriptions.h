#pragma once

#include "reactive/ObservableType.h"

#include <functional>
#include <utility>
#include <vector>

namespace orrelo::quick {

/// The subscriptions of an object, which end with its lifetime.
class Subscriptions {
 public:
  Subscriptions() = default;
  Subscriptions(const Subscriptions&) = delete;
  Subscriptions& operator=(const Subscriptions&) = delete;
  ~Subscriptions() { clear(); }

  void follow(const reactive::Observable<reactive::Unit>& signals, std::function<void()> onSignal) {
    handles_.push_back(signals.subscribe([onSignal = std::move(onSignal)](reactive::Unit) { onSignal(); }));
  }
  void clear() {
    for (const auto& handle : std::exchange(handles_, {})) handle.dispose();
  }

 private:
  std::vector<reactive::Disposable> handles_;
};

}  // namespace orrelo::quick
