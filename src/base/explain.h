#pragma once

#include <orrelo/Export.h>
#include <orrelo/ORLExplanations.h>

#include <atomic>
#include <concepts>
#include <functional>
#include <string>
#include <string_view>

namespace orrelo {

/// The highest level that anybody reads; 0 while the explanations are off. Until the environment has been
/// read it is above all levels.
ORRELO_EXPORT extern std::atomic<int> explanationThreshold;

ORRELO_EXPORT bool hasExplanationReader(ExplanationLevel level);
ORRELO_EXPORT void writeExplanation(ExplanationLevel level, std::string_view message);

inline bool isExplained(ExplanationLevel level) {
  return explanationThreshold.load(std::memory_order_relaxed) >= static_cast<int>(level) &&
         hasExplanationReader(level);
}

/// Writes one line to the explanations (see ORLExplanations.h): what failed, where, and what to do. `message`
/// is a text or a callable that returns one; the callable is only called if somebody reads this level. Any
/// thread, also while a lock is held.
template <class Message>
void explain(ExplanationLevel level, const Message& message) {
  if (!isExplained(level)) return;
  if constexpr (std::invocable<const Message&>) {
    writeExplanation(level, message());
  } else {
    writeExplanation(level, message);
  }
}

/// Sets what runs the host's sink: a function that queues a task for a thread of the kit and never runs it
/// before returning. Lines that are waiting are queued at once.
void setExplanationExecutor(std::function<void(std::function<void()>)> executor);

/// Passes the lines of all levels to `capture` on the threads that cause them; an empty one ends that. Used
/// by tests.
ORRELO_EXPORT void setExplanationCapture(ORLExplanations::Sink capture);

}  // namespace orrelo
