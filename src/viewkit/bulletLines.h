#pragma once

#include <string>
#include <vector>

namespace orrelo {

/// A line for each text, with a bullet before it; empty where there are none.
std::string bulletLines(const std::vector<std::string>& texts);

}  // namespace orrelo
