#pragma once

#include <filesystem>
#include <ostream>

namespace orrelo::console {

/// Prints the events in the kit's two stores, without touching them: a line an event, with its id, then the
/// count.
void printStoredEvents(const std::filesystem::path& dataDirectory, std::ostream& out);

}  // namespace orrelo::console
