#pragma once

#include <orrelo/Url.h>

#include <functional>
#include <memory>

namespace orrelo {

/// The application that the kit runs in.
class Application {
 public:
  enum class Signal { didEnterBackground, willEnterForeground, willTerminate };
  /// Ends an observation when its last copy is let go; a call that runs by then runs to its end.
  using Registration = std::shared_ptr<const void>;

  virtual ~Application() = default;

  /// Calls `callback` at each signal, on the main thread. Any thread may ask.
  [[nodiscard]] virtual Registration observe(Signal signal, std::function<void()> callback) = 0;
  /// Whether something on the machine takes this URL; `open` hands it over. Main thread.
  virtual bool canOpen(const Url& url) const = 0;
  virtual void open(const Url& url) = 0;
  /// Pixels to a point of the main screen. Any thread.
  virtual double screenScale() const = 0;
  /// Whether the user has asked the machine for less movement. Any thread.
  virtual bool prefersReducedMotion() const { return false; }
};

}  // namespace orrelo
