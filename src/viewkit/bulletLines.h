#pragma once

#include <string>
#include <vector>

namespace orrelo {

/// Joins the texts with line breaks and puts a bullet before each; empty if there are no texts.
std::string bulletLines(const std::vector<std::string>& texts);

}  // namespace orrelo
