#include "Scenario.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace orrelo::devservice {

namespace {

std::optional<std::string> readFile(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

// App keys come from outside: one that is no plain name must not lead out of the scenario.
bool isPlainName(const std::string& name) {
  return !name.empty() && name.size() <= 255 && name.front() != '.' &&
         name.find_first_of(std::string("/\\\0", 3)) == std::string::npos;
}

}  // namespace

Scenario::Scenario(std::filesystem::path directory) : root(std::move(directory)) {}

std::optional<std::string> Scenario::config(const std::string& appKey) const {
  return read(appKey, "config.json");
}

std::optional<std::string> Scenario::read(const std::string& appKey, const std::string& name) const {
  if (isPlainName(appKey)) {
    if (auto own = readFile(root / "apps" / appKey / name)) return own;
  }
  return readFile(root / name);
}

}  // namespace orrelo::devservice
