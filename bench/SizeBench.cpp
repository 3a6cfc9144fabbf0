// The size of the core's library as a host ships it, against the size of its sources.
#include "Benches.h"
#include "StrippedSize.h"
#include "Targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orrelo::bench {
namespace {

double linesOfSource() {
  std::ptrdiff_t lines = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(ORRELO_CORE_SOURCES)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    std::ifstream file(entry.path());
    lines += std::count(std::istreambuf_iterator<char>(file), {}, '\n');
  }
  if (lines == 0) throw std::runtime_error("there are no sources in " ORRELO_CORE_SOURCES);
  return static_cast<double>(lines);
}

}  // namespace

void addSize() {
#if ORRELO_IS_SHARED
  add({{"liborrelo stripped, KB for 1,000 lines of src", "", 95}, {"liborrelo stripped, KB", ""}}, [] {
    const double size = strippedSize(ORRELO_CORE_LIBRARY);
    return std::vector{size / (linesOfSource() / 1000.0), size};
  });
#endif
}

}  // namespace orrelo::bench
