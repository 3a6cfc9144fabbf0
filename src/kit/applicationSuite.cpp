#include "kit/applicationSuite.h"

#include "base/preconditionFailure.h"

#include <orrelo/Platform.h>

namespace orrelo {

std::shared_ptr<UserDefaults> applicationSuite(const std::string& appKey) {
  auto suite = Platform::current().userDefaults->suite(appKey);
  if (!suite) preconditionFailure("The application key \"" + appKey + "\" names no suite of user defaults");
  return suite;
}

}  // namespace orrelo
