#pragma once

#include <filesystem>
#include <ostream>

namespace orrelo::console {

/// Prints the events in the kit's two stores, one per line with its id, then the counts. Opens the stores
/// read-only.
void printStoredEvents(const std::filesystem::path& dataDirectory, std::ostream& out);

}  // namespace orrelo::console
