#pragma once

#include <filesystem>

namespace orrelo::devservice {

/// The folder of the scenario that comes with the service: in `share` of a folder above this program, so that
/// an installed tree can be moved, otherwise where it was to be installed. Throws std::runtime_error if it is
/// in neither place.
std::filesystem::path defaultScenario();

}  // namespace orrelo::devservice
