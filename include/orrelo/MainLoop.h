#pragma once

#include <orrelo/Export.h>

#include <chrono>
#include <functional>
#include <memory>

namespace orrelo {

/// The event loop of the main thread, which owns all screens. A front supplies its toolkit's event loop; a
/// host without one runs RunLoop::main().
class ORRELO_EXPORT MainLoop {
 public:
  using Task = std::function<void()>;

  virtual ~MainLoop() = default;

  /// Queues `task` for the main thread, in call order. Never runs it before returning. Any thread.
  virtual void post(Task task) = 0;
  /// Like `post`, after a delay. Tasks with the same due time run in the order in which they were posted.
  virtual void postAfter(std::chrono::microseconds delay, Task task) = 0;
  /// True on the main thread.
  virtual bool isCurrent() const = 0;
};

/// A plain event loop for a host that has none of its own.
///
/// Tasks that the kit posts to the main thread run only while a caller is inside `run`. That includes the
/// timers that resend stored events: every 10 seconds for the host's events, every 30 seconds for the kit's.
class ORRELO_EXPORT RunLoop final : public MainLoop {
 public:
  /// The process-wide run loop; never destroyed.
  static RunLoop& main();

  ~RunLoop() override;

  /// Runs tasks on the calling thread until `stop`. Meanwhile the calling thread counts as the main thread.
  void run();
  /// Like `run`, for at most `duration`.
  void runFor(std::chrono::microseconds duration);
  /// Makes `run` return after the current task. Any thread.
  void stop();

  void post(Task task) override;
  void postAfter(std::chrono::microseconds delay, Task task) override;
  bool isCurrent() const override;

 private:
  RunLoop();

  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace orrelo
