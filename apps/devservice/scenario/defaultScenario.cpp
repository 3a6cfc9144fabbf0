#include "scenario/defaultScenario.h"

#include <stdexcept>
#include <system_error>

namespace orrelo::devservice {

std::filesystem::path defaultScenario() {
  namespace fs = std::filesystem;
  std::error_code ignored;
  const auto program = fs::read_symlink("/proc/self/exe", ignored);
  for (auto folder = program; folder.has_relative_path(); folder = folder.parent_path()) {
    const auto scenario = folder.parent_path() / "share/orrelo-devservice/scenarios/default";
    if (fs::is_directory(scenario, ignored)) return scenario;
  }
  const auto installed = fs::path(ORRELO_SCENARIOS) / "default";
  if (fs::is_directory(installed, ignored)) return installed;
  throw std::runtime_error("no scenario: neither in share/orrelo-devservice/scenarios of a folder above " +
                           program.string() + " nor at " + installed.string() + "; name one");
}

}  // namespace orrelo::devservice
