#include "kit/applicationSuite.h"

#include "base/preconditionFailure.h"

#include <orrelo/Platform.h>

namespace orrelo {

std::shared_ptr<UserDefaults> applicationSuite(const std::string& appKey) {
  auto suite = Platform::current().userDefaults->suite(appKey);
  if (!suite) {
    preconditionFailure(
        "The application key \"" + appKey +
        "\" names no suite of user defaults: it is the identifier of the application's bundle, or "
        "NSGlobalDomain, whose settings are not the kit's. Use the key that the service gave you");
  }
  return suite;
}

}  // namespace orrelo
