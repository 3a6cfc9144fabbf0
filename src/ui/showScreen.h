#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// Shows `screen` with an animation: pushes it onto the navigation stack that contains `with`, or else
/// presents it from `with`. Does nothing if `with` is null. Main thread.
ORRELO_EXPORT void showScreen(const std::shared_ptr<ViewController>& screen,
                              const std::shared_ptr<ViewController>& with);

}  // namespace orrelo
