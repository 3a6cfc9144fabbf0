#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <thread>

namespace orrelo {

/// Whether the process has begun to exit. The kit's threads drop what they are asked for from then on: what a
/// task would touch may be gone.
bool isExiting();

/// The kit's threads stop: waits for what they run, for a second at most. Comes by itself with the process's
/// exit handlers; whoever takes down earlier what tasks use calls it before. More calls do nothing.
ORRELO_EXPORT void beginExit();

/// While one is held, the exit waits. To be taken before `isExiting` is asked, or the exit may begin in
/// between.
class ExitWaits {
 public:
  ExitWaits();
  ~ExitWaits();
  ExitWaits(const ExitWaits&) = delete;
  ExitWaits& operator=(const ExitWaits&) = delete;
};

/// A thread that takes none of the host's signals. Its name has at most 15 characters. Throws
/// std::system_error where the machine has no thread to give.
std::thread startKitThread(const char* name, std::function<void()> body);

/// Runs `task` on a thread of the kit's, and the exit waits for it and for the end of what it holds. A thread
/// that meets the exit here stops for good, with its task: whose captures may need what is gone.
void runTask(std::function<void()> task);

/// Runs `task`; what it throws ends in an ERROR line.
void runGuarded(const std::function<void()>& task);

/// Joins, or lets go of the thread when it is the caller's own or has stopped with the exit.
void finish(std::thread& thread);

}  // namespace orrelo
