#include "base/explain.h"

#include "base/Ascii.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <deque>
#include <memory>
#include <mutex>
#include <unistd.h>
#include <utility>

#if __has_include(<sys/auxv.h>)
#include <sys/auxv.h>
#endif

namespace orrelo {

constinit std::atomic<int> explanationThreshold = INT_MAX;

namespace {

using Level = ExplanationLevel;
using Sink = ORLExplanations::Sink;

constexpr std::array<std::string_view, 5> levelNames{"off", "error", "warning", "info", "debug"};
constexpr std::size_t maximumWaiting = 1000;

struct Line {
  Level level;
  std::string text;
};

struct Readers {
  /// Set once, before the threshold.
  std::atomic<int> environmentLevel = 0;
  std::once_flag environmentRead;
  std::atomic<bool> isCaptured = false;

  std::mutex mutex;
  std::shared_ptr<const Sink> capture;
  std::shared_ptr<const Sink> sink;
  int sinkLevel = 0;
  /// The process that has set the sink; a forked child has no thread to run it.
  std::atomic<pid_t> process = 0;
  std::function<void(std::function<void()>)> executor;
  std::deque<Line> waiting;
  std::size_t lostCount = 0;
  bool isScheduled = false;
  bool isDelivering = false;
};

thread_local bool isInSink = false;

Readers& readers() {
  static auto* const readers = new Readers;
  return *readers;
}

bool hasForeignRights() {
#if __has_include(<sys/auxv.h>)
  return getauxval(AT_SECURE) != 0;
#else
  return geteuid() != getuid() || getegid() != getgid();
#endif
}

void writeToStandardError(Level level, std::string_view text) {
  std::string line = "[Orrelo] ";
  line.append(levelNames.at(static_cast<std::size_t>(level))).append(": ").append(text).append("\n");
  const int before = errno;
  std::string_view rest = line;  // usually one call, so that concurrent lines cannot mix
  while (!rest.empty()) {
    const auto written = ::write(STDERR_FILENO, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) break;
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  errno = before;
}

void updateThreshold() {
  auto& shared = readers();
  const int captured = shared.isCaptured ? static_cast<int>(Level::debug) : 0;
  explanationThreshold = std::max({shared.environmentLevel.load(), shared.sinkLevel, captured});
}

void readEnvironment() {
  std::call_once(readers().environmentRead, [] {
    const char* const value = hasForeignRights() ? nullptr : std::getenv("ORRELO_LOG");
    const auto name = ascii::lowercased(value != nullptr ? value : "");
    const auto* const found = std::find(levelNames.begin(), levelNames.end(), name);
    if (found != levelNames.end()) {
      readers().environmentLevel = static_cast<int>(found - levelNames.begin());
    } else if (!name.empty()) {
      writeToStandardError(Level::error, "ORRELO_LOG has none of its values: error, warning, info, debug");
    }
    const std::lock_guard lock(readers().mutex);
    updateThreshold();
  });
}

// Texts of the service and of the system are part of lines and must not look like further lines.
std::string oneLine(std::string_view text) {
  auto line = utf8::repaired(text);
  std::replace_if(
      line.begin(), line.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
  // U+0080 to U+009F, of which one begins the commands of a terminal.
  for (auto at = line.find('\xC2'); at != std::string::npos; at = line.find('\xC2', at + 1)) {
    if (static_cast<unsigned char>(line[at + 1]) < 0xA0) line.replace(at, 2, "  ");
  }
  return line;
}

void call(const Sink& sink, const Line& line) {
  isInSink = true;
  try {
    sink(line.level, line.text);
  } catch (...) {  // the host's own fault, which must not end a thread of the kit
  }
  isInSink = false;
}

void deliver() {
  auto& shared = readers();
  std::unique_lock lock(shared.mutex);
  if (std::exchange(shared.isDelivering, true)) return;
  while (!shared.waiting.empty()) {
    const auto lines = std::exchange(shared.waiting, {});
    const auto lost = std::exchange(shared.lostCount, 0);
    const auto sink = shared.sink;
    lock.unlock();
    for (const auto& line : lines) {
      if (sink) call(*sink, line);
    }
    if (sink && lost > 0) {
      call(*sink, {Level::warning, std::to_string(lost) + " lines are left out: the sink is too slow"});
    }
    lock.lock();
  }
  shared.isDelivering = false;
  shared.isScheduled = false;
}

// `lock` is released.
void schedule(std::unique_lock<std::mutex> lock) {
  auto& shared = readers();
  if (!shared.executor || shared.waiting.empty() || std::exchange(shared.isScheduled, true)) return;
  const auto executor = shared.executor;
  lock.unlock();
  try {
    executor(&deliver);
  } catch (...) {  // the next line tries again
    const std::lock_guard again(shared.mutex);
    shared.isScheduled = false;
  }
}

void passToReaders(Line line) {
  auto& shared = readers();
  std::unique_lock lock(shared.mutex);
  if (const auto capture = shared.capture) {
    lock.unlock();
    (*capture)(line.level, line.text);
    lock.lock();
  }
  if (isInSink || !shared.sink || shared.sinkLevel < static_cast<int>(line.level)) return;
  if (shared.waiting.size() == maximumWaiting) {
    ++shared.lostCount;
    return;
  }
  shared.waiting.push_back(std::move(line));
  schedule(std::move(lock));
}

}  // namespace

bool hasExplanationReader(ExplanationLevel level) {
  readEnvironment();
  return explanationThreshold >= static_cast<int>(level);
}

void writeExplanation(ExplanationLevel level, std::string_view message) {
  auto& shared = readers();
  auto text = oneLine(message);
  if (shared.environmentLevel >= static_cast<int>(level)) writeToStandardError(level, text);
  // The lock may have been held when a child was forked, which has no thread for the sink either.
  if (shared.process == getpid()) passToReaders({level, std::move(text)});
}

void ORLExplanations::setSink(ExplanationLevel level, Sink sink) {
  readEnvironment();
  auto& shared = readers();
  auto given = sink ? std::make_shared<const Sink>(std::move(sink)) : nullptr;
  const std::lock_guard lock(shared.mutex);
  if (shared.process != getpid()) {  // what the parent's threads were doing does not end in a forked child
    shared.isDelivering = false;
    shared.isScheduled = false;
    shared.waiting.clear();
  }
  std::swap(shared.sink, given);  // the former one is destroyed after the lock is released
  shared.sinkLevel = shared.sink ? static_cast<int>(level) : 0;
  shared.process = getpid();
  if (!shared.sink) shared.waiting.clear();
  updateThreshold();
}

void setExplanationExecutor(std::function<void(std::function<void()>)> executor) {
  auto& shared = readers();
  std::unique_lock lock(shared.mutex);
  std::swap(shared.executor, executor);
  shared.isScheduled = false;  // the former one may not run its task any more
  schedule(std::move(lock));
}

void setExplanationCapture(ORLExplanations::Sink capture) {
  readEnvironment();
  auto& shared = readers();
  auto given = capture ? std::make_shared<const Sink>(std::move(capture)) : nullptr;
  const std::lock_guard lock(shared.mutex);
  std::swap(shared.capture, given);
  shared.isCaptured = shared.capture != nullptr;
  shared.process = getpid();
  updateThreshold();
}

}  // namespace orrelo
