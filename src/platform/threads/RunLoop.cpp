#include "platform/threads/DelayedTasks.h"
#include "platform/threads/KitThread.h"

#include <orrelo/MainLoop.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <unistd.h>
#include <utility>

namespace orrelo {

struct RunLoop::State {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Task> ready;
  DelayedTasks<Task> delayed;
  std::optional<std::thread::id> runningThread;
  bool isStopped = false;

  /// Waits until something changes, a delayed task is due, or `end` is reached.
  void wait(std::unique_lock<std::mutex>& lock, std::optional<DelayedTasks<Task>::Time> end) {
    auto until = end;
    if (!delayed.empty() && (!until || delayed.firstDue() < *until)) until = delayed.firstDue();
    if (until) {
      changed.wait_until(lock, *until);
    } else {
      changed.wait(lock);
    }
  }

  void run(std::optional<DelayedTasks<Task>::Time> end) {
    std::unique_lock lock(mutex);
    const auto outer = std::exchange(runningThread, std::this_thread::get_id());
    while (!isStopped && !(end && std::chrono::steady_clock::now() >= *end)) {
      delayed.takeDue([this](Task task) { ready.push_back(std::move(task)); });
      if (ready.empty()) {
        wait(lock, end);
        continue;
      }
      auto task = std::move(ready.front());
      ready.pop_front();
      lock.unlock();
      runGuarded(task);
      task = nullptr;
      lock.lock();
    }
    isStopped = false;
    runningThread = outer;
  }
};

RunLoop& RunLoop::main() {
  static auto* const loop = new RunLoop;
  return *loop;
}

RunLoop::RunLoop() : state_(std::make_unique<State>()) {}
RunLoop::~RunLoop() = default;

void RunLoop::run() {
  state_->run(std::nullopt);
}

void RunLoop::runFor(std::chrono::microseconds duration) {
  state_->run(DelayedTasks<Task>::after(duration));
}

void RunLoop::stop() {
  const std::lock_guard lock(state_->mutex);
  state_->isStopped = true;
  state_->changed.notify_one();
}

void RunLoop::post(Task task) {
  if (isExiting()) return;
  const std::lock_guard lock(state_->mutex);
  state_->ready.push_back(std::move(task));
  state_->changed.notify_one();
}

void RunLoop::postAfter(std::chrono::microseconds delay, Task task) {
  if (delay.count() <= 0) return post(std::move(task));
  if (isExiting()) return;
  const auto due = DelayedTasks<Task>::after(delay);
  const std::lock_guard lock(state_->mutex);
  state_->delayed.add(due, std::move(task));
  state_->changed.notify_one();
}

bool RunLoop::isCurrent() const {
  const std::lock_guard lock(state_->mutex);
  return state_->runningThread ? *state_->runningThread == std::this_thread::get_id() : getpid() == gettid();
}

}  // namespace orrelo
