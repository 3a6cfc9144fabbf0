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

// App keys, ids and names come from clients and must not lead out of the scenario's folder.
bool isPlainName(const std::string& name) {
  return !name.empty() && name.size() <= 255 && name.front() != '.' &&
         name.find_first_of(std::string("/\\\0", 3)) == std::string::npos;
}

}  // namespace

Scenario::Scenario(std::filesystem::path directory, std::optional<Moment> now)
    : root_(std::move(directory)), fixedNow_(now) {}

std::optional<std::string> Scenario::config(const std::string& appKey) const {
  return read(appKey, "config.json");
}

std::vector<std::string> Scenario::campaigns(const std::string& appKey) const {
  std::error_code error;
  auto folder = root_ / "apps" / appKey / "campaigns";
  if (!isPlainName(appKey) || !std::filesystem::is_directory(folder, error)) folder = root_ / "campaigns";
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

std::optional<std::string> Scenario::wallet(const std::string& appKey) const {
  return read(appKey, "wallet.json");
}

std::optional<std::string> Scenario::floatingButton(const std::string& appKey) const {
  return read(appKey, "fab.json");
}

std::optional<std::string> Scenario::messages(const std::string& appKey) const {
  return read(appKey, "messages.json");
}

std::optional<std::string> Scenario::lookup() const {
  return readFile(root_ / "lookup.json");
}

std::optional<std::string> Scenario::image(const std::string& name) const {
  return isPlainName(name) ? readFile(root_ / "images" / name) : std::nullopt;
}

std::optional<std::string> Scenario::page(const std::string& name) const {
  return isPlainName(name) ? readFile(root_ / "pages" / name) : std::nullopt;
}

std::optional<std::string> Scenario::read(const std::string& appKey, const std::string& name) const {
  if (isPlainName(appKey)) {
    if (auto own = readFile(root_ / "apps" / appKey / name)) return own;
  }
  return readFile(root_ / name);
}

}  // namespace orrelo::devservice
