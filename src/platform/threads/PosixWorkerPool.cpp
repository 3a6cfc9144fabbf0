#include "platform/threads/PosixWorkerPool.h"

#include "base/explain.h"
#include "platform/threads/DelayedTasks.h"
#include "platform/threads/KitThread.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <pthread.h>
#include <sched.h>
#include <string>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

// Called by each worker, whose work must not delay the host's threads. The nice value gives precedence to the
// main thread, which may be building a screen while workers decode images. SCHED_BATCH keeps a worker that
// `sendEvent` wakes from preempting the caller before the call returns.
void lowerPriority() {
#ifdef __linux__  // elsewhere both calls affect the whole process
  const sched_param batchPriority{};
  pthread_setschedparam(pthread_self(), SCHED_BATCH, &batchPriority);
  setpriority(PRIO_PROCESS, 0, 5);
#endif
}

}  // namespace

struct PosixWorkerPool::State : std::enable_shared_from_this<PosixWorkerPool::State> {
  /// A delayed task and the index of the queue that it enters when it is due.
  struct Delayed {
    std::size_t queue;
    Task task;
  };

  struct Worker {
    std::thread thread;
    std::condition_variable wake;
    bool isAwake = true;
  };

  std::mutex mutex;
  std::array<std::deque<Task>, 5> ready;  // one for each QualityOfService
  DelayedTasks<Delayed> delayed;
  std::array<Worker, 4> workers;
  std::size_t started = 0;
  std::vector<Worker*> sleeping;
  /// The sleeping worker that wakes up when the first delayed task is due.
  Worker* timekeeper = nullptr;
  bool stopping = false;
  /// Why the first worker could not be started; taken by `report`.
  std::string startFailure;

  bool hasReady() const {
    return std::any_of(ready.begin(), ready.end(), [](const auto& queue) { return !queue.empty(); });
  }

  void promoteDue() {
    delayed.takeDue([this](Delayed item) { ready[item.queue].push_back(std::move(item.task)); });
  }

  Task takeFirst() {
    for (auto& queue : ready) {
      if (queue.empty()) continue;
      auto task = std::move(queue.front());
      queue.pop_front();
      return task;
    }
    return nullptr;
  }

  /// Returns a sleeping worker, which the caller must notify; null if a new one was started or all are busy.
  Worker* acquireWorker() {
    if (!sleeping.empty()) {
      auto* const worker = sleeping.back();
      sleeping.pop_back();
      worker->isAwake = true;
      return worker;
    }
    if (started == workers.size()) return nullptr;
    try {
      auto& worker = workers[started];
      worker.thread =
          startKitThread("orrelo-worker", [self = shared_from_this(), &worker] { self->work(worker); });
      ++started;
    } catch (const std::system_error& error) {
      if (started == 0) startFailure = error.what();
    }
    return nullptr;
  }

  /// Called without the mutex, since a sink of the explanations is run by this pool.
  static void report(const std::string& failure) {
    if (failure.empty()) return;
    explain(ExplanationLevel::error, [&] {
      return "The kit's worker pool has no thread (" + failure +
             "), and nothing is done in the background until one can be started: raise the limit of threads.";
    });
  }

  void work(Worker& worker) {
    lowerPriority();
    std::unique_lock lock(mutex);
    bool hasYielded = false;
    while (!stopping) {
      promoteDue();
      auto task = takeFirst();
      if (!task && !std::exchange(hasYielded, true)) {
        // The posting thread often has more tasks; yielding to it once is cheaper than sleeping and being
        // woken.
        lock.unlock();
        std::this_thread::yield();
        lock.lock();
        continue;
      }
      if (!task) {
        sleep(worker, lock);
        continue;
      }
      hasYielded = false;
      // Another worker must take the remaining and the delayed tasks while this one is busy.
      const bool isNeeded = hasReady() || (!delayed.empty() && timekeeper == nullptr);
      auto* const other = isNeeded ? acquireWorker() : nullptr;
      lock.unlock();
      if (other != nullptr) other->wake.notify_one();
      runTask(std::move(task));
      lock.lock();
    }
  }

  void sleep(Worker& worker, std::unique_lock<std::mutex>& lock) {
    const auto isAwake = [&] { return worker.isAwake; };
    worker.isAwake = false;
    sleeping.push_back(&worker);
    if (delayed.empty() || timekeeper != nullptr) {
      worker.wake.wait(lock, isAwake);
    } else {
      timekeeper = &worker;
      const auto due = delayed.firstDue();
      worker.wake.wait_until(lock, due, isAwake);
      timekeeper = nullptr;
    }
    if (!worker.isAwake) std::erase(sleeping, &worker);
  }
};

PosixWorkerPool::PosixWorkerPool() : state_(std::make_shared<State>()) {}

PosixWorkerPool::~PosixWorkerPool() {
  {
    const std::lock_guard lock(state_->mutex);
    state_->stopping = true;
    for (auto* worker : state_->sleeping) {
      worker->isAwake = true;
      worker->wake.notify_one();
    }
    state_->sleeping.clear();
  }
  for (auto& worker : state_->workers) finish(worker.thread);
}

void PosixWorkerPool::post(QualityOfService qos, Task task) {
  if (isExiting()) return;
  State::Worker* worker = nullptr;
  std::string failure;
  {
    const std::lock_guard lock(state_->mutex);
    state_->ready[static_cast<std::size_t>(qos)].push_back(std::move(task));
    worker = state_->acquireWorker();
    failure.swap(state_->startFailure);
  }
  State::report(failure);
  if (worker != nullptr) worker->wake.notify_one();
}

void PosixWorkerPool::postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) {
  if (delay.count() <= 0) return post(qos, std::move(task));
  if (isExiting()) return;
  const auto due = DelayedTasks<State::Delayed>::after(delay);
  State::Worker* worker = nullptr;
  std::string failure;
  {
    const std::lock_guard lock(state_->mutex);
    const bool isFirst = state_->delayed.add(due, {static_cast<std::size_t>(qos), std::move(task)});
    // The timekeeper waits for a later task and must wake up to wait for this one.
    if (isFirst && state_->timekeeper != nullptr) {
      worker = state_->timekeeper;
      if (!worker->isAwake) std::erase(state_->sleeping, worker);
      worker->isAwake = true;
    } else if (isFirst) {
      worker = state_->acquireWorker();
    }
    failure.swap(state_->startFailure);
  }
  State::report(failure);
  if (worker != nullptr) worker->wake.notify_one();
}

}  // namespace orrelo
