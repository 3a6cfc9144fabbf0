#include "platform/posix/PosixDirectories.h"

#include "platform/posix/PosixBundle.h"
#include "platform/store/FileNames.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace orrelo {
namespace {

namespace fs = std::filesystem;

fs::path home() {
  if (const char* value = std::getenv("HOME"); value != nullptr && *value != '\0') return value;
  if (const auto* user = getpwuid(getuid()); user != nullptr && user->pw_dir != nullptr) return user->pw_dir;
  return "/tmp";
}

/// The variable is ignored unless it holds an absolute path.
fs::path baseFolder(const char* variable, const char* belowHome) {
  if (const char* value = std::getenv(variable); value != nullptr && *value == '/') return value;
  return home() / belowHome;
}

fs::path choose(const fs::path& stated, const char* variable, const char* belowHome,
                const HostApplication& host) {
  std::error_code failure;
  auto folder = stated.empty() ? baseFolder(variable, belowHome) / encodedFileName(bundleIdentifier(host))
                               : fs::absolute(stated, failure);
  return host.developmentService.url.empty() ? folder : folder / "development";
}

/// Creates the folder if missing. Ignores errors: they surface when a file in the folder is opened.
const fs::path& created(const fs::path& folder) {
  std::error_code failure;
  if (fs::create_directories(folder, failure)) {
    fs::permissions(folder, fs::perms::owner_all, failure);
  }
  return folder;
}

}  // namespace

PosixDirectories::PosixDirectories(const HostApplication& host)
    : data_(choose(host.dataDirectory, "XDG_DATA_HOME", ".local/share", host)),
      cache_(choose(host.cacheDirectory, "XDG_CACHE_HOME", ".cache", host)) {}

fs::path PosixDirectories::data() const {
  return created(data_);
}

fs::path PosixDirectories::cache() const {
  return created(cache_);
}

}  // namespace orrelo
