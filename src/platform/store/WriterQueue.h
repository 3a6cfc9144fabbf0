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

/// The stores' own thread, started by the first task. What is posted after the process began to exit is
/// dropped; the exit waits for the rest.
class WriterQueue final : public SerialExecutor {
 public:
  WriterQueue();
  /// Runs what was posted, then ends the thread.
  ~WriterQueue() override;

  void post(Task task) override;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
