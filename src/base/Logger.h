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

/// Logs one line. `message` is a text, or a callable that makes one: it is not called while the log is
/// silent.
template <class Message>
void log(LogLevel level, const Message& message) {
  if (!isLogEnabled()) return;
  if constexpr (std::invocable<const Message&>) {
    writeLogLine(level, message());
  } else {
    writeLogLine(level, message);
  }
}

/// Where the lines' dates come from; the system's clock until it is set.
void setLogClock(std::function<Date()> now);

/// Takes the finished lines, without their newline, instead of standard output, and says whether the log is
/// on at all; an empty sink restores standard output and leaves the log as it is. For tests.
void setLogSink(std::function<void(std::string_view line)> sink, bool enabled = true);

}  // namespace orrelo
