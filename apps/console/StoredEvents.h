#pragma once

#include <filesystem>
#include <string>

namespace orrelo::console {

/// Lists the events in the kit's two stores, one per line with its id, then the counts. Opens the stores
/// read-only. Not for a process in which the kit has them open.
std::string storedEvents(const std::filesystem::path& dataDirectory);

/// The same list, from a process of its own: this program with `option` and the folder as its arguments.
std::string storedEventsFromProcess(const char* option, const std::filesystem::path& dataDirectory);

}  // namespace orrelo::console
