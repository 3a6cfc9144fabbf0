#pragma once

#include <functional>
#include <memory>

namespace orrelo {

/// Runs tasks one at a time, in the order in which they were posted. Any thread may post.
class SerialExecutor {
 public:
  using Task = std::function<void()>;

  virtual ~SerialExecutor() = default;

  virtual void post(Task task) = 0;
};

/// The stores' own thread, started by the first task. Tasks posted after the process has begun to exit are
/// dropped; the exit waits for the others.
class WriterQueue final : public SerialExecutor {
 public:
  WriterQueue();
  /// Runs the remaining tasks, then ends the thread.
  ~WriterQueue() override;

  void post(Task task) override;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
