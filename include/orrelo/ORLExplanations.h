#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <string_view>

namespace orrelo {

/// How much a line of ORLExplanations matters, in ascending order of the number of lines.
enum class ExplanationLevel {
  /// Something ends or is lost: a pipeline, a store, a call that can never do its work.
  error = 1,
  /// Something did not happen: a request failed, an event was dropped, a part of a page was left out.
  warning,
  /// What the kit has started with, and calls that do nothing for a usual reason.
  info,
  /// Each request, with the beginning of its reply.
  debug
};

/// Lines for a host's developer that say what failed, where, and what to do. They are separate from the log
/// of ORLLogger and off by default.
///
/// The environment variable "ORRELO_LOG" with the value "error", "warning", "info" or "debug" ("off" or empty
/// for none) writes the lines of this level and those above it to standard error, one line each: "[Orrelo]
/// warning: …". It is read once, at the first use of the kit, and ignored in a process that runs with the
/// rights of another user (set-uid). A host gets the lines by a sink, whatever the variable says.
///
/// A line never has the values of the host's events, an id of a user, or a push token, except that at `debug`
/// it has the first 200 characters of the service's replies.
class ORRELO_EXPORT ORLExplanations {
 public:
  /// Called on a thread of the kit, a moment after the line's cause, for one line at a time and in order. No
  /// lock of the kit is held, so that it may call the kit. Lines that such a call causes before it returns do
  /// not come back to it; those that it causes later do, so do not report an event for each line. What it
  /// throws is ignored. `line` is valid UTF-8 without control characters, and only during the call.
  using Sink = std::function<void(ExplanationLevel level, std::string_view line)>;

  ORLExplanations() = delete;

  /// Replaces the sink, which gets the lines of `level` and those that matter more; an empty one ends them. A
  /// call of the former sink that has begun may still run when this returns. Lines that come before a
  /// platform is there wait for it, and at most 1,000 lines wait for a slow sink. At the end of the process
  /// the last lines may be lost. A forked child does not call the sink of its parent and may set one of its
  /// own. Any thread.
  static void setSink(ExplanationLevel level, Sink sink);
};

}  // namespace orrelo
