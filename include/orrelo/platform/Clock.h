#pragma once

#include <orrelo/Date.h>
#include <orrelo/Export.h>

#include <chrono>

namespace orrelo {

/// The machine's time. Any thread.
class ORRELO_EXPORT Clock {
 public:
  virtual ~Clock() = default;

  /// The device's wall-clock time; the user may change it.
  virtual Date now() const = 0;
  /// Monotonic time since an arbitrary fixed moment.
  virtual std::chrono::microseconds steady() const = 0;
};

}  // namespace orrelo
