#pragma once

#include "platform/threads/KitThread.h"

#include <orrelo/MainLoop.h>

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

/// Runs `task` immediately if called on the main thread; otherwise posts it there.
template <class Task>
void onMain(MainLoop& loop, Task task) {
  if (loop.isCurrent()) return task();
  loop.post(std::move(task));
}

/// A callback that is called at most once, on the main thread, and is destroyed there after the call. An
/// exception that it throws is logged. Copies share the callback.
template <class Value>
class MainCompletion {
 public:
  using Callback = std::function<void(const Value&)>;

  MainCompletion(std::shared_ptr<MainLoop> loop, Callback callback)
      : loop_(std::move(loop)), callback_(std::make_shared<Callback>(std::move(callback))) {}

  void operator()(Value value) const {
    onMain(*loop_, [callback = callback_, value = std::move(value)] {
      const auto once = std::exchange(*callback, nullptr);
      if (once) runGuarded([&] { once(value); });
    });
  }

 private:
  std::shared_ptr<MainLoop> loop_;
  std::shared_ptr<Callback> callback_;
};

}  // namespace orrelo
