#pragma once

#include <orrelo/Export.h>

#include <chrono>
#include <functional>
#include <utility>

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
  /// Posts a task that decodes an image, which takes milliseconds of processor time; at most two are posted
  /// at a time. On Linux the kit's own pool runs them on two threads that give way to the others of the
  /// process. By default they are tasks of the highest priority.
  virtual void postDecoding(Task task) { post(QualityOfService::userInteractive, std::move(task)); }
};

}  // namespace orrelo
