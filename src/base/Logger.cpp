#include "base/Logger.h"

#include "base/DateFormat.h"
#include "base/EnumTexts.h"
#include "base/TimeZone.h"

#include <orrelo/ORLLogger.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

struct LogState {
  std::atomic<bool> enabled = false;
  std::mutex mutex;
  std::function<Date()> now = [] {
    const auto elapsed = std::chrono::system_clock::now().time_since_epoch();
    return Date(std::chrono::duration_cast<std::chrono::microseconds>(elapsed));
  };
  std::function<void(std::string_view)> sink;
};

LogState& state() {
  static auto* const state = new LogState;
  return *state;
}

}  // namespace

void ORLLogger::enable() {
  state().enabled = true;
}

bool isLogEnabled() {
  return state().enabled.load(std::memory_order_relaxed);
}

void setLogClock(std::function<Date()> now) {
  const std::lock_guard lock(state().mutex);
  state().now = std::move(now);
}

void setLogSink(std::function<void(std::string_view)> sink, bool enabled) {
  const std::lock_guard lock(state().mutex);
  if (sink) state().enabled = enabled;
  state().sink = std::move(sink);
}

void writeLogLine(LogLevel level, std::string_view message) {
  static constexpr EnumTexts<LogLevel, 7> names({
      {LogLevel::TRACE, "TRACE"},
      {LogLevel::DEBUG, "DEBUG"},
      {LogLevel::INFO, "INFO"},
      {LogLevel::NOTICE, "NOTICE"},
      {LogLevel::WARNING, "WARNING"},
      {LogLevel::ERROR, "ERROR"},
      {LogLevel::CRITICAL, "CRITICAL"},
  });
  // Log lines use the device's time zone; the service protocol uses UTC.
  static const auto* const zone = new TimeZone(TimeZone::current());

  std::function<Date()> now;
  std::function<void(std::string_view)> sink;
  {
    const std::lock_guard lock(state().mutex);
    now = state().now;
    sink = state().sink;
  }
  const auto date = now();
  std::string line = "[OrreloSDK][";
  line += names.text(level);
  line += "] ";
  line += formatDate(date, "yyyy-MM-dd HH:mm:ss.SSSSSSZ", zone->offset(date));
  line += ' ';
  line += message;
  if (sink) return sink(line);
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);  // one call, so that concurrent lines cannot mix
  std::fflush(stdout);
}

}  // namespace orrelo
