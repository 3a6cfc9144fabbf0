#pragma once

#include <orrelo/Date.h>
#include <orrelo/Export.h>

#include <chrono>

namespace orrelo {

/// The machine's time. Any thread.
class ORRELO_EXPORT Clock {
 public:
  virtual ~Clock() = default;

  /// What the device's clock shows; the user may set it.
  virtual Date now() const = 0;
  /// Time since some fixed moment; it never goes back.
  virtual std::chrono::microseconds steady() const = 0;
};

}  // namespace orrelo
