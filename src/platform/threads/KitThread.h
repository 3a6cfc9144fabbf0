#pragma once

#include <orrelo/Export.h>

#include <cstddef>
#include <functional>
#include <thread>

namespace orrelo {

/// True once the process has begun to exit. From then on the kit's threads drop new tasks, because objects
/// that a task uses may already be destroyed.
bool isExiting();

/// Stops the kit's threads: waits until there is no ExitBlocker, then for the current tasks, at most one
/// second in all. In a forked child, which has none of the threads, it does not wait. An exit handler calls
/// it; code that destroys objects used by tasks earlier must call it before that. Further calls do nothing.
ORRELO_EXPORT void beginExit();

/// Delays the exit of the process, for at most a second, while an instance exists. Tasks still start until
/// then, so that they can do what the blocker waits for.
class ExitBlocker {
 public:
  ExitBlocker();
  ~ExitBlocker();
  ExitBlocker(const ExitBlocker&) = delete;
  ExitBlocker& operator=(const ExitBlocker&) = delete;
};

/// Starts a thread that blocks the host's signals. Its name may have at most 15 characters. Throws
/// std::system_error if no thread can be created, and on the stores' thread, whose descriptors are separate.
std::thread startKitThread(const char* name, std::function<void()> body);

/// The number of threads that `startKitThread` has started and that have not ended.
std::size_t kitThreadCount();

/// True on a thread that `startKitThread` has started.
bool isKitThread();

/// Runs `task` on the calling thread of the kit. The exit waits for the task and for the destruction of its
/// captures. If the process is already exiting, the thread is suspended forever and keeps the task, because
/// destroying its captures may access objects that no longer exist.
void runTask(std::function<void()> task);

/// Runs `task`; an exception that it throws is logged as an error.
void runGuarded(const std::function<void()>& task);

/// Joins the thread; detaches it if it is the calling thread or if the process is exiting.
void finish(std::thread& thread);

}  // namespace orrelo
