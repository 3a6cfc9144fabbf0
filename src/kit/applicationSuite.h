#pragma once

#include <orrelo/UserDefaults.h>

#include <memory>
#include <string>

namespace orrelo {

/// The user defaults of the application. Stops the process if the key is not a valid suite name.
std::shared_ptr<UserDefaults> applicationSuite(const std::string& appKey);

}  // namespace orrelo
