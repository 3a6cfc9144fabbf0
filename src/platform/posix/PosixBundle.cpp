#include "platform/posix/PosixBundle.h"

#include <filesystem>
#include <utility>

namespace orrelo {

std::shared_ptr<Bundle> PosixBundle::main(const HostApplication& host) {
  Entries entries{{"CFBundleIdentifier", bundleIdentifier(host)},
                  {"CFBundleShortVersionString", host.shortVersion},
                  {"CFBundleVersion", host.bundleVersion}};
  std::erase_if(entries, [](const auto& entry) { return entry.second.empty(); });
  return std::make_shared<PosixBundle>(std::move(entries));
}

std::shared_ptr<Bundle> PosixBundle::kit() {
  return std::make_shared<PosixBundle>(
      Entries{{"CFBundleShortVersionString", ORRELO_VERSION}, {"ORLBuildNumber", ORRELO_BUILD_NUMBER}});
}

std::optional<std::string> PosixBundle::info(std::string_view key) const {
  const auto found = entries_.find(key);
  if (found == entries_.end()) return std::nullopt;
  return found->second;
}

std::string bundleIdentifier(const HostApplication& host) {
  if (!host.bundleIdentifier.empty()) return host.bundleIdentifier;
  std::error_code failure;
  auto name = std::filesystem::read_symlink("/proc/self/exe", failure).filename().string();
  // The kernel adds this suffix if the executable was replaced while running.
  constexpr std::string_view deleted = " (deleted)";
  if (name.ends_with(deleted)) name.resize(name.size() - deleted.size());
  return name.empty() ? "orrelo" : name;
}

}  // namespace orrelo
