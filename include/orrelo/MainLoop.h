#pragma once

#include <orrelo/Export.h>

#include <chrono>
#include <functional>
#include <memory>

namespace orrelo {

/// The thread that owns the screens, as the kit sees it. A front gives its toolkit's event loop; a host
/// without one runs RunLoop::main().
class ORRELO_EXPORT MainLoop {
 public:
  using Task = std::function<void()>;

  virtual ~MainLoop() = default;

  /// Runs `task` on the main thread, after what was posted before it. Any thread. Never runs it before
  /// returning.
  virtual void post(Task task) = 0;
  /// The same after a delay; tasks of one due time run in the order in which they were posted.
  virtual void postAfter(std::chrono::microseconds delay, Task task) = 0;
  /// Whether the caller is on the main thread.
  virtual bool isCurrent() const = 0;
};

/// A plain event loop for a host that has none of its own.
///
/// Nothing that the kit posts to the main thread runs while no one is in `run`. That includes the idle ticks
/// which resend stored events, every 10 seconds for the host's and every 30 seconds for the kit's own.
class ORRELO_EXPORT RunLoop final : public MainLoop {
 public:
  /// The process's one run loop; never destroyed.
  static RunLoop& main();

  ~RunLoop() override;

  /// Runs tasks on the calling thread, which is the main thread from now on, until `stop`.
  void run();
  /// The same, for at most `duration`.
  void runFor(std::chrono::microseconds duration);
  /// Ends `run` after the task that runs now. Any thread.
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
