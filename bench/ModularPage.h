#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orrelo::bench {

/// The names of `count` blocks, which cycle through all kinds in the order of the service's sample page.
std::vector<std::string> mixedBlocks(std::size_t count);

/// A page of these blocks with a blank around each. Their content is the sample page's. Every picture has a
/// unique URL, which `salt` keeps distinct from those of other pages.
std::string modularPage(const std::vector<std::string>& order, const std::string& salt = "");

}  // namespace orrelo::bench
