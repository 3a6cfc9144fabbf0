#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// The outermost screen of the window that the user has before them; null where there is none. It is known
/// weakly. Main thread.
ORRELO_EXPORT std::shared_ptr<ViewController> keyWindowRootViewController();

/// For the front, and for a host that draws for itself: the user has turned to this window.
ORRELO_EXPORT void setKeyWindowRootViewController(const std::shared_ptr<ViewController>& root);

}  // namespace orrelo
