#pragma once

#include <orrelo/Date.h>
#include <orrelo/Export.h>

#include <concepts>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

namespace orrelo {

enum class LogLevel { TRACE, DEBUG, INFO, NOTICE, WARNING, ERROR, CRITICAL };

ORRELO_EXPORT bool isLogEnabled();
ORRELO_EXPORT void writeLogLine(LogLevel level, std::string_view message);

/// Logs one line. `message` is a text or a callable that returns one; the callable is only called while the
/// log is enabled.
template <class Message>
void log(LogLevel level, const Message& message) {
  if (!isLogEnabled()) return;
  if constexpr (std::invocable<const Message&>) {
    writeLogLine(level, message());
  } else {
    writeLogLine(level, message);
  }
}

/// Sets the clock for the dates of log lines; the default is the system's clock.
void setLogClock(std::function<Date()> now);

/// Redirects the lines, without their newlines, from standard output to `sink`, and enables or disables the
/// log. An empty sink restores standard output and ignores `enabled`. Used by tests.
ORRELO_EXPORT void setLogSink(std::function<void(std::string_view line)> sink, bool enabled = true);

}  // namespace orrelo
