#pragma once

#include <orrelo/MainLoop.h>

#include <utility>

namespace orrelo {

/// Runs `task` on the main thread: now where that is the caller's, else soon.
template <class Task>
void onMain(MainLoop& loop, Task task) {
  if (loop.isCurrent()) return task();
  loop.post(std::move(task));
}

}  // namespace orrelo
