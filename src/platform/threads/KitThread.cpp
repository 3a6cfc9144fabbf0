#include "platform/threads/KitThread.h"

#include "base/Error.h"
#include "base/Utf8.h"
#include "base/explain.h"
#include "platform/posix/ForkedChild.h"
#include "platform/store/separateDescriptors.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <pthread.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace orrelo {
namespace {

std::atomic<bool> exitBegan = false;
std::atomic<int> blockers = 0;
std::atomic<int> activeTasks = 0;
std::atomic<std::size_t> threadCount = 0;
// The process that the kit's threads belong to; 0 before the first one. A forked child has none of them.
std::atomic<std::uint64_t> threadsGeneration = 0;
// Excluded from the wait in `beginExit`, since a task itself may end the process.
thread_local int activeTasksHere = 0;
thread_local bool isStartedHere = false;

int registerExit() {
  // Exit handlers and destructors of static objects run in reverse order. Using simdjson here creates its
  // static objects before `beginExit` is registered, so that they outlive the tasks that it waits for.
  static_cast<void>(utf8::isValid({}));
  std::at_quick_exit(beginExit);
  return std::atexit(beginExit);
}

bool hasThreads() {
  return threadsGeneration == processGeneration();
}

[[noreturn]] void suspendForever() {
  while (true) pause();
}

}  // namespace

void beginExit() {
  constexpr std::chrono::seconds timeout{1};
  static std::atomic<bool> isCalled = false;
  if (isCalled.exchange(true)) return;
  const auto end = std::chrono::steady_clock::now() + timeout;
  const auto waitWhile = [end](const auto& condition) {
    while (hasThreads() && condition() && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
  };
  // What a blocker waits for is done by tasks, which therefore still start.
  waitWhile([] { return blockers > 0; });
  exitBegan = true;
  waitWhile([] { return activeTasks > activeTasksHere; });
}

bool isExiting() {
  [[maybe_unused]] static const int registered = registerExit();
  return exitBegan;
}

ExitBlocker::ExitBlocker() {
  ++blockers;
}

ExitBlocker::~ExitBlocker() {
  --blockers;
}

std::thread startKitThread(const char* name, std::function<void()> body) {
  // A new thread shares the table of its creator, in which the numbers of the process mean other files.
  if (hasSeparateDescriptors())
    throw std::system_error(std::make_error_code(std::errc::operation_not_permitted));
  const auto generation = processGeneration();
  const auto former = threadsGeneration.exchange(generation);
  // In a forked child: what the parent's threads are doing does not end here.
  if (former != 0 && former != generation) {
    blockers = 0;
    activeTasks = activeTasksHere;
    threadCount = 0;
  }
  // The host's signals must not be handled on the kit's threads. Signals that a thread raises by its own
  // fault and SIGPROF stay unblocked, since crash reporters and profilers depend on them.
  sigset_t blocked;
  sigset_t before;
  sigfillset(&blocked);
  for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS, SIGPROF}) {
    sigdelset(&blocked, signal);
  }
  pthread_sigmask(SIG_SETMASK, &blocked, &before);
  std::thread thread;
  ++threadCount;
  try {
    thread = std::thread([body = std::move(body)] {
      isStartedHere = true;
      body();
      --threadCount;
    });
  } catch (...) {
    --threadCount;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    throw;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  pthread_setname_np(thread.native_handle(), name);
  return thread;
}

std::size_t kitThreadCount() {
  return hasThreads() ? threadCount.load() : 0;
}

bool isKitThread() {
  return isStartedHere;
}

void runTask(std::function<void()> task) {
  ++activeTasks;  // before the check, or else the exit may begin in between
  if (isExiting()) {
    --activeTasks;
    suspendForever();
  }
  ++activeTasksHere;
  runGuarded(task);
  task = nullptr;
  --activeTasksHere;
  --activeTasks;
}

void runGuarded(const std::function<void()>& task) {
  try {
    task();
  } catch (...) {
    explain(ExplanationLevel::error, [] {
      return "A task threw " + Error::fromCurrentException().description() +
             ", and the kit goes on without it. If it is a completion or a delegate of the host, catch the "
             "exception there.";
    });
  }
}

void finish(std::thread& thread) {
  if (!thread.joinable()) return;
  if (isExiting() || !hasThreads() || thread.get_id() == std::this_thread::get_id()) {
    thread.detach();
  } else {
    thread.join();
  }
}

}  // namespace orrelo
