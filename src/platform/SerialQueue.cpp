#include "platform/SerialQueue.h"

#include "platform/KitThread.h"

#include <deque>
#include <mutex>
#include <utility>

namespace orrelo {

struct SerialQueue::State : std::enable_shared_from_this<SerialQueue::State> {
  std::shared_ptr<WorkerPool> workers;
  QualityOfService qos = QualityOfService::standard;
  std::mutex mutex;
  std::deque<Task> tasks;
  bool isRunning = false;

  void callWorker() {
    workers->post(qos, [self = shared_from_this()] { self->runFirst(); });
  }

  // One task a turn, so that a long queue does not keep a worker from more urgent work.
  void runFirst() {
    Task task;
    {
      const std::lock_guard lock(mutex);
      task = std::move(tasks.front());
      tasks.pop_front();
    }
    runGuarded(task);
    task = nullptr;
    const std::lock_guard lock(mutex);
    isRunning = !tasks.empty();
    if (isRunning) callWorker();
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
  if (!std::exchange(state_->isRunning, true)) state_->callWorker();
}

}  // namespace orrelo
