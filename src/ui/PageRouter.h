#pragma once

#include "page/Page.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// Takes the user to a page. Main thread.
class ORRELO_EXPORT PageRouter {
 public:
  virtual ~PageRouter() = default;

  /// A page that cannot be opened is only logged.
  virtual void route(const std::shared_ptr<ViewController>& from, const Page& page) = 0;
};

}  // namespace orrelo
