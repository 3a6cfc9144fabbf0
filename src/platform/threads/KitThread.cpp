#include "platform/threads/KitThread.h"

#include "base/Error.h"
#include "base/Logger.h"
#include "base/Utf8.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <pthread.h>
#include <unistd.h>
#include <utility>

namespace orrelo {
namespace {

std::atomic<bool> exitBegan = false;
std::atomic<int> held = 0;
// A task may be what ends the process.
thread_local int heldHere = 0;

int registerExit() {
  // Handlers run in the reverse order: what simdjson makes at its first use must be there before, for tasks
  // need it.
  static_cast<void>(utf8::isValid({}));
  return std::atexit(beginExit);
}

[[noreturn]] void stopForGood() {
  while (true) pause();
}

}  // namespace

void beginExit() {
  constexpr std::chrono::seconds patience{1};
  if (exitBegan.exchange(true)) return;
  const auto end = std::chrono::steady_clock::now() + patience;
  while (held > heldHere && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
}

bool isExiting() {
  [[maybe_unused]] static const int registered = registerExit();
  return exitBegan;
}

ExitWaits::ExitWaits() {
  ++held;
}

ExitWaits::~ExitWaits() {
  --held;
}

std::thread startKitThread(const char* name, std::function<void()> body) {
  // The host's signals are for the host's threads, but for those that a thread raises by a fault of its own
  // or that look at every thread: crash reporters and profilers live on them.
  sigset_t blocked;
  sigset_t before;
  sigfillset(&blocked);
  for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS, SIGPROF}) {
    sigdelset(&blocked, signal);
  }
  pthread_sigmask(SIG_SETMASK, &blocked, &before);
  std::thread thread;
  try {
    thread = std::thread(std::move(body));
  } catch (...) {
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    throw;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  pthread_setname_np(thread.native_handle(), name);
  return thread;
}

void runTask(std::function<void()> task) {
  {
    const ExitWaits waits;
    if (!isExiting()) {
      ++heldHere;
      runGuarded(task);
      task = nullptr;
      --heldHere;
      return;
    }
  }
  stopForGood();
}

void runGuarded(const std::function<void()>& task) {
  try {
    task();
  } catch (...) {
    log(LogLevel::ERROR, [] { return "A task threw " + Error::fromCurrentException().description(); });
  }
}

void finish(std::thread& thread) {
  if (!thread.joinable()) return;
  if (isExiting() || thread.get_id() == std::this_thread::get_id()) {
    thread.detach();
  } else {
    thread.join();
  }
}

}  // namespace orrelo
