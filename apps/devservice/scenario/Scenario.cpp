#include "scenario/Scenario.h"

#include <algorithm>
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

Scenario::Scenario(std::filesystem::path directory, std::optional<Moment> now)
    : root(std::move(directory)), fixedNow(now) {}

std::optional<std::string> Scenario::config(const std::string& appKey) const {
  return read(appKey, "config.json");
}

std::vector<std::string> Scenario::campaigns(const std::string& appKey) const {
  std::error_code error;
  auto folder = root / "apps" / appKey / "campaigns";
  if (!isPlainName(appKey) || !std::filesystem::is_directory(folder, error)) folder = root / "campaigns";
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".json") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::string> Scenario::campaign(const std::string& appKey, const std::string& id) const {
  if (!isPlainName(id)) return std::nullopt;
  return read(appKey, "campaigns/" + id + ".json");
}

std::optional<std::string> Scenario::lookup() const {
  return readFile(root / "lookup.json");
}

std::optional<std::string> Scenario::image(const std::string& name) const {
  return isPlainName(name) ? readFile(root / "images" / name) : std::nullopt;
}

std::optional<std::string> Scenario::page(const std::string& name) const {
  return isPlainName(name) ? readFile(root / "pages" / name) : std::nullopt;
}

std::optional<std::string> Scenario::read(const std::string& appKey, const std::string& name) const {
  if (isPlainName(appKey)) {
    if (auto own = readFile(root / "apps" / appKey / name)) return own;
  }
  return readFile(root / name);
}

}  // namespace orrelo::devservice
