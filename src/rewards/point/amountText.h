#pragma once

#include "base/numberText.h"

#include <cstdint>
#include <string>

namespace orrelo {

/// An amount of points in decimal, followed by its unit if there is one.
inline std::string amountText(std::int64_t amount, const std::string& unit) {
  return unit.empty() ? numberText(amount) : numberText(amount) + " " + unit;
}

}  // namespace orrelo
