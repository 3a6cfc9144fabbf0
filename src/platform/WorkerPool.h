#pragma once

#include <chrono>
#include <functional>

namespace orrelo {

/// Classes of work, the most urgent first.
enum class QualityOfService { userInteractive, userInitiated, standard, utility, background };

/// Threads for work that nobody waits for. Of the tasks that wait, one of the most urgent class starts next,
/// and within a class the oldest. Any thread may post; a task never runs before `post` returned.
class WorkerPool {
 public:
  using Task = std::function<void()>;

  virtual ~WorkerPool() = default;

  virtual void post(QualityOfService qos, Task task) = 0;
  virtual void postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) = 0;
};

}  // namespace orrelo
