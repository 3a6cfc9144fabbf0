#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// The root screen of the window that has the user's focus; null if there is none. The screen is held weakly.
/// Main thread.
ORRELO_EXPORT std::shared_ptr<ViewController> keyWindowRootViewController();

/// Called by the front when the user activates a window.
ORRELO_EXPORT void setKeyWindowRootViewController(const std::shared_ptr<ViewController>& root);

}  // namespace orrelo
