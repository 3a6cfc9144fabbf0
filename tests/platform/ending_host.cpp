// Ends in the way that its second argument names, and prints what the kit's tasks have done until then.
// Usage: ending_host <data folder> <way>
#include "platform/StoreSupport.h"
#include "platform/posix/ForkedChild.h"
#include "platform/threads/KitThread.h"

#include <orrelo/Export.h>

#include <atomic>
#include <cstdlib>
#include <map>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

// The sanitizers find these functions by their names. A forked child deliberately keeps what it cannot
// destroy, which would be reported as a leak, and starts a thread, which the thread sanitizer forbids.
extern "C" {
ORRELO_EXPORT const char* __tsan_default_options();  // NOLINT(readability-identifier-naming)
ORRELO_EXPORT const char* __asan_default_options();  // NOLINT(readability-identifier-naming)

const char* __asan_default_options() {  // NOLINT(readability-identifier-naming)
  return "detect_leaks=0";
}
const char* __tsan_default_options() {  // NOLINT(readability-identifier-naming)
  return "die_after_fork=0";
}
}

namespace orrelo::test {
namespace {

// What still runs at the end uses these objects, which are therefore never destroyed.
struct Host {
  explicit Host(const std::string& folder)
      : factory(std::make_shared<FolderDirectories>(folder), std::make_shared<ManualClock>(), writer),
        store(factory.open("store", EventTimeStorage::date)) {}

  std::shared_ptr<WriterQueue> writer = WriterQueue::shared();
  SqliteEventDatabaseFactory factory;
  std::shared_ptr<EventDatabase> store;
};
Host* host = nullptr;
std::optional<ExitBlocker> blocker;

void print(const std::string& text) {
  if (write(STDOUT_FILENO, text.data(), text.size()) < 0) std::abort();
}

/// Returns while the first of two posted tasks runs, which ends once the exit has begun.
void keepBusy() {
  static std::atomic<bool> hasStarted = false;
  host->writer->post([] {
    hasStarted = true;
    while (!isExiting()) std::this_thread::yield();
    print("running ");
  });
  host->writer->post([] { print("queued "); });
  while (!hasStarted) std::this_thread::yield();
}

int exitInChild() {
  blocker.emplace();
  keepBusy();
  const auto child = fork();
  if (child == 0) {
    host->store->insert(eventRow("child"), nullptr);
    std::promise<void> ran;
    WriterQueue::shared()->post([&] { ran.set_value(); });
    ran.get_future().wait();
    std::exit(3);
  }
  int status = 0;
  waitpid(child, &status, 0);
  print("child " + std::to_string(WEXITSTATUS(status)) + ' ');
  blocker.reset();
  return 0;
}

/// Leaves a child behind that was forked while this process had the right to send.
int leaveChild() {
  static std::shared_ptr<const void> right;
  std::promise<void> acquired;
  host->store->acquireSending([&](auto result) {
    right = std::get<0>(std::move(result));
    acquired.set_value();
  });
  acquired.get_future().wait();
  const auto child = fork();
  if (child == 0) {
    while (true) pause();
  }
  print(std::to_string(child) + (right ? "\n" : " without the right\n"));
  _exit(0);
}

/// Is destroyed after the kit has stopped, since it is made before the kit registers its exit handler.
struct LateObject {
  ~LateObject() {
    if (host == nullptr) return;
    host->store->insert(eventRow("late"), nullptr);
    host->store->acquireSending([](const auto&) { print("late "); });
    print("destroyed");
  }
};

const std::map<std::string, std::function<int()>> ways{
    {"return", [] { return keepBusy(), 0; }},
    {"exit", [] { return keepBusy(), std::exit(0), 0; }},
    {"quick_exit", [] { return keepBusy(), std::quick_exit(0), 0; }},
    {"_exit", [] { return keepBusy(), _exit(0), 0; }},
    {"task",
     [] {
       host->writer->post([] { std::exit(0); });
       while (true) pause();
       return 1;
     }},
    {"completion",
     [] {
       host->store->insert(eventRow("1"), [](const auto& result) {
         print(result.index() == 0 ? "stored " : "failed ");
         std::exit(0);
       });
       while (true) pause();
       return 1;
     }},
    {"blocked",
     [] {
       isExiting();  // registers the kit's exit handler, which runs after the next one
       blocker.emplace();
       std::atexit([] {
         host->writer->post([] {
           print("released ");
           blocker.reset();
         });
       });
       return 0;
     }},
    {"forked child", exitInChild},
    {"child left behind", leaveChild}};

}  // namespace
}  // namespace orrelo::test

int main(int count, char** words) {
  using namespace orrelo::test;
  static const LateObject late;
  if (count != 3) return 2;
  host = new Host(words[1]);
  return ways.at(words[2])();
}
