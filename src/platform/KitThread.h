#pragma once

#include <functional>
#include <thread>

namespace orrelo {

/// Whether the process has begun to exit. The kit's threads drop what they are asked for from then on: what a
/// task would touch may be gone.
bool isExiting();

/// While one is held, the end of the process waits: for a second at most.
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

/// Runs `task`; what it throws ends in an ERROR line.
void runGuarded(const std::function<void()>& task);

/// Joins, or lets go of the thread when it is the caller's own.
void finish(std::thread& thread);

}  // namespace orrelo
