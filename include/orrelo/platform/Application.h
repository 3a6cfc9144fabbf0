#pragma once

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <functional>
#include <memory>
#include <string>

namespace orrelo {

/// The application that the kit runs in.
class ORRELO_EXPORT Application {
 public:
  /// A change of the application's state.
  enum class Signal { didEnterBackground, willEnterForeground, willTerminate };
  /// Keeps an observation alive until its last copy is released. A callback that is running by then
  /// completes.
  using Registration = std::shared_ptr<const void>;

  virtual ~Application() = default;

  /// Calls `callback` on the main thread at each signal. May be called on any thread. An ApplicationObservers
  /// does it for a host's own class.
  [[nodiscard]] virtual Registration observe(Signal signal, std::function<void()> callback) = 0;
  /// True if the machine or the host can open this URL; `open` opens it. Main thread only.
  virtual bool canOpen(const Url& url) const = 0;
  virtual void open(const Url& url) = 0;
  /// Replaces the content of the general pasteboard with this text. Main thread only.
  virtual void setPasteboard(const std::string& text) = 0;
  /// Offers the user the machine's ways to send this text to somebody. Returns at once; the user may decline.
  /// Main thread only.
  virtual void share(const std::string& text) = 0;
  /// The main screen's scale, in pixels per point. Any thread.
  virtual double screenScale() const = 0;
  /// True if the user has enabled reduced motion in the system's settings. Any thread.
  virtual bool prefersReducedMotion() const { return false; }
};

}  // namespace orrelo
