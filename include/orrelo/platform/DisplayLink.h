#pragma once

#include <orrelo/Export.h>

#include <functional>
#include <memory>

namespace orrelo {

/// Ticks at the display's rate, by which the kit advances animated images.
class ORRELO_EXPORT DisplayLink {
 public:
  using Tick = std::function<void()>;
  /// Keeps the ticks coming until its last copy is released, which may happen during a tick.
  using Registration = std::shared_ptr<const void>;

  virtual ~DisplayLink() = default;

  /// The ticks per second of time: 120 if the main screen's refresh rate is exactly 120 Hz, otherwise 60,
  /// whatever frames a window draws. It does not change while a registration lives: the kit maps an animation
  /// onto this rate when it loads the animation. Main thread only.
  virtual int ticksPerSecond() const = 0;
  /// Calls `tick` at that rate on the main thread while a window of the application is exposed; without one
  /// there are no ticks. Main thread only.
  [[nodiscard]] virtual Registration start(Tick tick) = 0;
};

}  // namespace orrelo
