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

// Called by each thread, whose work must not delay the host's threads. SCHED_BATCH keeps a worker that
// `sendEvent` wakes from preempting the caller before the call returns.
void lowerPriority([[maybe_unused]] int nice) {
#ifdef __linux__  // elsewhere both calls affect the whole process
  const sched_param batchPriority{};
  pthread_setschedparam(pthread_self(), SCHED_BATCH, &batchPriority);
  setpriority(PRIO_PROCESS, 0, nice);
#endif
}

}  // namespace

struct PosixWorkerPool::Threads : std::enable_shared_from_this<PosixWorkerPool::Threads> {
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

  /// What the threads of a group have in common. A thread keeps its nice value: an unprivileged process may
  /// only raise it, which is why decoding has threads of its own.
  struct Group {
    const char* name;
    std::size_t maximumCount;
    int nice;
  };
  static constexpr Group workers{.name = "orrelo-worker", .maximumCount = 4, .nice = 5};
  // Two threads that decode give way to the main thread, which builds the screen that shows the images.
  static constexpr Group decoders{.name = "orrelo-decoder", .maximumCount = 2, .nice = 15};

  explicit Threads(const Group& kind) : group(kind) {}

  const Group group;
  std::mutex mutex;
  std::array<std::deque<Task>, 5> ready;  // one for each QualityOfService
  DelayedTasks<Delayed> delayed;
  std::array<Worker, 4> threads;  // of which the group uses its maximum count
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
    if (started == group.maximumCount) return nullptr;
    try {
      auto& worker = threads[started];
      worker.thread =
          startKitThread(group.name, [self = shared_from_this(), &worker] { self->work(worker); });
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
    lowerPriority(group.nice);
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

  /// Starts a thread if there is none yet. Returns false if that fails.
  bool hasThread() {
    const std::lock_guard lock(mutex);
    if (started == 0) acquireWorker();
    startFailure.clear();
    return started > 0;
  }

  void post(QualityOfService qos, Task task) {
    if (isExiting()) return;
    Worker* worker = nullptr;
    std::string failure;
    {
      const std::lock_guard lock(mutex);
      ready[static_cast<std::size_t>(qos)].push_back(std::move(task));
      worker = acquireWorker();
      failure.swap(startFailure);
    }
    report(failure);
    if (worker != nullptr) worker->wake.notify_one();
  }

  void postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) {
    if (isExiting()) return;
    const auto due = DelayedTasks<Delayed>::after(delay);
    Worker* worker = nullptr;
    std::string failure;
    {
      const std::lock_guard lock(mutex);
      const bool isFirst = delayed.add(due, {static_cast<std::size_t>(qos), std::move(task)});
      // The timekeeper waits for a later task and must wake up to wait for this one.
      if (isFirst && timekeeper != nullptr) {
        worker = timekeeper;
        if (!worker->isAwake) std::erase(sleeping, worker);
        worker->isAwake = true;
      } else if (isFirst) {
        worker = acquireWorker();
      }
      failure.swap(startFailure);
    }
    report(failure);
    if (worker != nullptr) worker->wake.notify_one();
  }

  void stop() {
    {
      const std::lock_guard lock(mutex);
      stopping = true;
      for (auto* worker : sleeping) {
        worker->isAwake = true;
        worker->wake.notify_one();
      }
      sleeping.clear();
    }
    for (auto& worker : threads) finish(worker.thread);
  }
};

PosixWorkerPool::PosixWorkerPool()
    : workers_(std::make_shared<Threads>(Threads::workers)),
      decoders_(std::make_shared<Threads>(Threads::decoders)) {}

PosixWorkerPool::~PosixWorkerPool() {
  for (const auto& threads : {decoders_, workers_}) threads->stop();  // a decoder's task may post others
}

void PosixWorkerPool::post(QualityOfService qos, Task task) {
  workers_->post(qos, std::move(task));
}

void PosixWorkerPool::postDecoding(Task task) {
  const bool hasDecoder = !isExiting() && decoders_->hasThread();
  (hasDecoder ? decoders_ : workers_)->post(QualityOfService::userInteractive, std::move(task));
}

void PosixWorkerPool::postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) {
  if (delay.count() <= 0) return post(qos, std::move(task));
  workers_->postAfter(qos, delay, std::move(task));
}

}  // namespace orrelo
