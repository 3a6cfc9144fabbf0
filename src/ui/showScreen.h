#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string_view>

namespace orrelo {

/// Shows `screen` with an animation: pushes it onto the navigation stack that contains `with`, or else
/// presents it from `with`. Does nothing if `with` is null. Main thread.
ORRELO_EXPORT void showScreen(const std::shared_ptr<ViewController>& screen,
                              const std::shared_ptr<ViewController>& with);

/// Explains that an operation of the host shows nothing, if `with` is null.
void explainMissingScreen(const std::shared_ptr<ViewController>& with, std::string_view operation);

}  // namespace orrelo
