#pragma once

#include <string>

namespace orrelo::devservice {

/// The user that a request is made for, and the address that it was sent to.
struct Caller {
  std::string appKey;
  /// The value of the header "buid".
  std::string userId;
  /// The address, such as "https://localhost:9443", that replaces "{{service}}" in the files.
  std::string serviceUrl;
};

}  // namespace orrelo::devservice
