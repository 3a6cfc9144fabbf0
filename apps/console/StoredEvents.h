#pragma once

#include <filesystem>
#include <string>

namespace orrelo::console {

/// Lists the events in the kit's two stores, one per line with its id, then the counts. Opens the stores
/// read-only.
std::string storedEvents(const std::filesystem::path& dataDirectory);

}  // namespace orrelo::console
