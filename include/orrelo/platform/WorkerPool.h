#pragma once

#include <orrelo/Export.h>

#include <chrono>
#include <functional>

namespace orrelo {

/// Priorities of work, in descending order.
enum class QualityOfService { userInteractive, userInitiated, standard, utility, background };

/// Threads for background work. Tasks start in order of priority, and within a priority in the order in which
/// they were posted. A task never runs inside the `post` that queued it. Any thread.
class ORRELO_EXPORT WorkerPool {
 public:
  using Task = std::function<void()>;

  virtual ~WorkerPool() = default;

  virtual void post(QualityOfService qos, Task task) = 0;
  virtual void postAfter(QualityOfService qos, std::chrono::microseconds delay, Task task) = 0;
};

}  // namespace orrelo
