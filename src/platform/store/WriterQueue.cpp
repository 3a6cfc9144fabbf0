#include "platform/store/WriterQueue.h"

#include "base/Logger.h"
#include "platform/threads/KitThread.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

namespace orrelo {
namespace {

constexpr std::chrono::microseconds spinTime{30};

}  // namespace

struct WriterQueue::State {
  std::mutex mutex;
  std::condition_variable arrived;
  std::deque<Task> tasks;
  std::thread thread;
  std::optional<ExitBlocker> exitBlocker;  // set while there are tasks
  std::atomic<bool> hasArrived = false;
  bool sleeping = false;
  bool stopping = false;

  void start(const std::shared_ptr<State>& self) {
    try {
      thread = startKitThread("orrelo-writer", [self] { self->work(); });
    } catch (const std::system_error& error) {
      log(LogLevel::ERROR, std::string("The stores have no thread yet: ") + error.what());
    }
  }

  void work() {
    std::unique_lock lock(mutex);
    while (true) {
      if (tasks.empty()) {
        exitBlocker.reset();
        if (stopping) return;
        waitForTask(lock);
        continue;
      }
      auto task = std::move(tasks.front());
      tasks.pop_front();
      lock.unlock();
      runGuarded(task);  // not runTask: the exit waits for all queued tasks
      task = nullptr;
      lock.lock();
    }
  }

  /// Spins briefly before sleeping: the next task often arrives sooner than a sleeping thread would wake.
  void waitForTask(std::unique_lock<std::mutex>& lock) {
    hasArrived = false;
    lock.unlock();
    const auto end = std::chrono::steady_clock::now() + spinTime;
    while (!hasArrived && std::chrono::steady_clock::now() < end) continue;
    lock.lock();
    if (hasArrived) return;
    sleeping = true;
    arrived.wait(lock, [this] { return hasArrived.load(); });
    sleeping = false;
  }
};

WriterQueue::WriterQueue() : state_(std::make_shared<State>()) {}

WriterQueue::~WriterQueue() {
  {
    const std::lock_guard lock(state_->mutex);
    state_->stopping = true;
    state_->hasArrived = true;
  }
  state_->arrived.notify_one();
  finish(state_->thread);
}

void WriterQueue::post(Task task) {
  const ExitBlocker blocker;
  if (isExiting()) return;
  bool wake = false;
  {
    const std::lock_guard lock(state_->mutex);
    state_->tasks.push_back(std::move(task));
    if (!state_->exitBlocker) state_->exitBlocker.emplace();
    state_->hasArrived = true;
    if (!state_->thread.joinable()) state_->start(state_);
    wake = std::exchange(state_->sleeping, false);
  }
  if (wake) state_->arrived.notify_one();
}

}  // namespace orrelo
