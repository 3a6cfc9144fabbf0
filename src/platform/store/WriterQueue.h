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

/// The stores' own thread, started by the first task. Where the system permits it, the thread has its own
/// table of file descriptors, which a forked child does not inherit: a descriptor that a task opens must be
/// used and closed in tasks alone, and a task must not use one of another thread. Tasks that have not started
/// when the process begins to exit are kept and not run, as are those posted in a forked child.
class WriterQueue final : public SerialExecutor {
 public:
  /// The queue of this process. Connections of SQLite to one file must be opened on one table of
  /// descriptors, so all stores share it.
  static std::shared_ptr<WriterQueue> shared();

  WriterQueue();
  /// Runs the remaining tasks, then ends the thread.
  ~WriterQueue() override;

  void post(Task task) override;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace orrelo
