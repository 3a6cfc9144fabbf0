#pragma once

#include <string>

namespace orrelo {

/// The accessible label of an item with two texts: both, or the one that is not empty.
inline std::string joinedLabel(const std::string& first, const std::string& second) {
  return first.empty() || second.empty() ? first + second : first + ", " + second;
}

}  // namespace orrelo
