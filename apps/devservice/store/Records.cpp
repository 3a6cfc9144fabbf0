#include "store/Records.h"

#include <strings.h>

namespace orrelo::devservice {

std::optional<std::string> RequestRecord::header(const std::string& name) const {
  for (const auto& [key, value] : headers) {
    if (strcasecmp(key.c_str(), name.c_str()) == 0) return value;
  }
  return std::nullopt;
}

}  // namespace orrelo::devservice
