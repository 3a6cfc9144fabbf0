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

  /// Calls exactly one of the two callbacks, on the main thread.
  virtual void route(const std::shared_ptr<ViewController>& from, std::function<void()> onSuccess,
                     std::function<void(const Error&)> onFailure) = 0;
};

}  // namespace orrelo
