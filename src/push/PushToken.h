#pragma once

#include <string>

namespace orrelo {

/// The name under which the platform's push service knows this installation.
struct PushToken {
  std::string rawValue;
};

/// The form for log lines.
inline std::string description(const PushToken& token) {
  return "PushToken(rawValue: " + token.rawValue + ")";
}

}  // namespace orrelo
