#include "StrippedSize.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace orrelo::bench {

double strippedSize(const std::string& library) {
  const auto copy =
      std::filesystem::temp_directory_path() / ("orrelo-bench-stripped." + std::to_string(::getpid()));
  const auto command = "'" ORRELO_STRIP "' -o '" + copy.string() + "' '" + library + "'";
  const bool isStripped = std::system(command.c_str()) == 0;
  if (!isStripped) std::filesystem::remove(copy);
  if (!isStripped) throw std::runtime_error(library + " cannot be stripped");
  const auto bytes = static_cast<double>(std::filesystem::file_size(copy));
  std::filesystem::remove(copy);
  return bytes / 1000.0;
}

}  // namespace orrelo::bench
