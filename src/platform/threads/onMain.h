#pragma once

#include "platform/threads/KitThread.h"

#include <orrelo/MainLoop.h>

#include <functional>
#include <memory>
#include <utility>

namespace orrelo {

/// Runs `task` on the main thread: now where that is the caller's, else soon.
template <class Task>
void onMain(MainLoop& loop, Task task) {
  if (loop.isCurrent()) return task();
  loop.post(std::move(task));
}

/// A callback that is called once, on the main thread, and let go there with all that it holds. What it
/// throws ends in a log line. Its copies stand for the same callback.
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
