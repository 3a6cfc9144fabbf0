#pragma once

#include "reactive/Subjects.h"

#include <mutex>

namespace orrelo {

/// The loading state of a screen's pipeline. After `finish`, concurrent triggers cannot set it to loading
/// again. Observers are called while the lock is held and must therefore switch to another scheduler.
/// Thread-safe.
class LoadingState {
 public:
  void begin() { set(true, false); }
  void end() { set(false, false); }
  void finish() { set(false, true); }
  /// The current value and its changes.
  reactive::Observable<bool> stream() const;

 private:
  void set(bool isLoading, bool isFinal);

  std::mutex mutex_;
  bool hasFinished_ = false;
  reactive::BehaviorSubject<bool> isLoading_{false};
};

}  // namespace orrelo
