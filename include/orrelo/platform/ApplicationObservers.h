#pragma once

#include <orrelo/Export.h>
#include <orrelo/platform/Application.h>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo {

/// Keeps the observers of an application, for a host's own class:
///
///     class ShopApplication final : public orrelo::Application {
///      public:
///       Registration observe(Signal signal, std::function<void()> callback) override {
///         return observers_.observe(signal, std::move(callback));
///       }
///       void didHide() { observers_.send(Signal::didEnterBackground); }
///       …
///
///      private:
///       orrelo::ApplicationObservers observers_;
///     };
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
