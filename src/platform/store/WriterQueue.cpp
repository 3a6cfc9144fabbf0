#include "platform/store/WriterQueue.h"

#include "base/explain.h"
#include "platform/posix/ForkedChild.h"
#include "platform/store/separateDescriptors.h"
#include "platform/threads/KitThread.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
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
  /// The process that the thread belongs to; 0 before its start.
  std::atomic<std::uint64_t> generation = 0;
  std::atomic<bool> hasArrived = false;
  bool sleeping = false;
  bool stopping = false;

  bool belongsToParent() const { return generation != 0 && generation != processGeneration(); }

  void start(const std::shared_ptr<State>& self) {
    try {
      thread = startKitThread("orrelo-writer", [self] { self->work(); });
      generation = processGeneration();
    } catch (const std::system_error& error) {
      explain(ExplanationLevel::error, [&] {
        return std::string("The kit's stores have no thread (") + error.what() +
               "), and nothing is stored until one can be started: raise the limit of threads.";
      });
    }
  }

  void work() {
    separateDescriptors();
    std::unique_lock lock(mutex);
    while (true) {
      if (tasks.empty()) {
        if (stopping) return;
        waitForTask(lock);
        continue;
      }
      auto task = std::move(tasks.front());
      tasks.pop_front();
      lock.unlock();
      runTask(std::move(task));
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

std::shared_ptr<WriterQueue> WriterQueue::shared() {
  // No mutex guards it, since that could stay locked in a forked child.
  static std::atomic<const std::shared_ptr<WriterQueue>*> current = nullptr;
  const auto* found = current.load();
  while (found == nullptr || (*found)->state_->belongsToParent()) {
    const auto* const made = new auto(std::make_shared<WriterQueue>());
    if (current.compare_exchange_strong(found, made)) return *made;
    delete made;
  }
  return *found;
}

WriterQueue::WriterQueue() : state_(std::make_shared<State>()) {}

WriterQueue::~WriterQueue() {
  if (state_->belongsToParent()) {
    // Its destruction would wait for a thread that does not exist here, and its mutex may be locked.
    static_cast<void>(new std::shared_ptr<State>(std::move(state_)));
    return;
  }
  {
    const std::lock_guard lock(state_->mutex);
    state_->stopping = true;
    state_->hasArrived = true;
  }
  state_->arrived.notify_one();
  finish(state_->thread);
}

void WriterQueue::post(Task task) {
  if (state_->belongsToParent()) {
    // Destroying the task could close a descriptor that has another meaning in this process.
    static_cast<void>(new Task(std::move(task)));
    return;
  }
  const bool isOver = isExiting();
  bool wake = false;
  {
    const std::lock_guard lock(state_->mutex);
    state_->tasks.push_back(std::move(task));
    if (isOver) return;
    state_->hasArrived = true;
    if (!state_->thread.joinable()) state_->start(state_);
    wake = std::exchange(state_->sleeping, false);
  }
  if (wake) state_->arrived.notify_one();
}

}  // namespace orrelo
