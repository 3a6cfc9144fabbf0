#include "platform/threads/SerialQueue.h"

#include "platform/threads/KitThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace orrelo {

struct SerialQueue::State : std::enable_shared_from_this<SerialQueue::State> {
  using Lock = std::unique_lock<std::mutex>;

  std::shared_ptr<WorkerPool> workers;
  QualityOfService qos = QualityOfService::standard;
  std::mutex mutex;
  std::condition_variable stopped;
  std::deque<Task> tasks;
  /// True while a posted call of `work` has not started yet.
  bool isScheduled = false;
  bool isRunning = false;

  void schedule() {
    if (tasks.empty() || isRunning || std::exchange(isScheduled, true)) return;
    workers->post(qos, [self = shared_from_this()] { self->work(); });
  }

  // Runs one task per call, so that a long queue does not keep a worker from more urgent work.
  void work() {
    Lock lock(mutex);
    isScheduled = false;
    if (!tasks.empty() && !isRunning) runFirst(lock);
    schedule();
  }

  void runFirst(Lock& lock) {
    isRunning = true;
    auto task = std::move(tasks.front());
    tasks.pop_front();
    lock.unlock();
    runGuarded(task);
    task = nullptr;
    lock.lock();
    isRunning = false;
    stopped.notify_all();
  }

  void finish(std::chrono::steady_clock::time_point deadline) {
    Lock lock(mutex);
    while (stopped.wait_until(lock, deadline, [this] { return !isRunning; })) {
      if (tasks.empty() || std::chrono::steady_clock::now() >= deadline) break;
      runFirst(lock);
    }
    schedule();
  }
};

SerialQueue::SerialQueue(std::shared_ptr<WorkerPool> workers, QualityOfService qos)
    : state_(std::make_shared<State>()) {
  state_->workers = std::move(workers);
  state_->qos = qos;
}

void SerialQueue::post(Task task) {
  const std::lock_guard lock(state_->mutex);
  state_->tasks.push_back(std::move(task));
  state_->schedule();
}

void SerialQueue::finish(std::chrono::milliseconds timeout) {
  state_->finish(std::chrono::steady_clock::now() + timeout);
}

}  // namespace orrelo
