#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orrelo::bench {

/// The names of so many blocks, of every kind, in the order in which the service's sample page has them,
/// again and again.
std::vector<std::string> mixedBlocks(std::size_t count);

/// A page of these blocks with a blank around each. What they say is the sample page's; every picture has a
/// URL of its own, which `salt` sets apart from those of another page.
std::string modularPage(const std::vector<std::string>& order, const std::string& salt = "");

}  // namespace orrelo::bench
