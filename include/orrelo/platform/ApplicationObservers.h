#pragma once

#include <orrelo/Export.h>
#include <orrelo/platform/Application.h>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo {

/// Keeps the observers of an application, for a host's own class: its `observe` calls that of a member of
/// this type, and `send` tells the kit that the application goes to the background, or returns.
class ORRELO_EXPORT ApplicationObservers {
 public:
  /// Any thread.
  [[nodiscard]] Application::Registration observe(Application::Signal signal, std::function<void()> callback);
  /// Calls the signal's observers in the order of their registration. Main thread only.
  void send(Application::Signal signal);

 private:
  struct Observer {
    Application::Signal signal;
    std::function<void()> callback;
  };

  std::mutex mutex_;
  std::vector<std::weak_ptr<const Observer>> observers_;
};

}  // namespace orrelo
