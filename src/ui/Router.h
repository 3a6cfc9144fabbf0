#pragma once

#include "base/Error.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <functional>
#include <memory>

namespace orrelo {

/// Takes the user to one feature's screen. Main thread.
class ORRELO_EXPORT Router {
 public:
  virtual ~Router() = default;

  /// Opens the screen from `from`. Calls at most one of the two callbacks, at most once and on the main
  /// thread; a router may call neither, and its route is then not logged.
  virtual void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                     std::function<void(const Error&)> onFailure) = 0;
};

}  // namespace orrelo
