#include "platform/posix/PosixDevice.h"

#include "base/TimeZone.h"

#include <cstdlib>
#include <fstream>
#include <sys/utsname.h>
#include <utility>

namespace orrelo {
namespace {

std::string unquoted(std::string text) {
  const bool isQuoted =
      text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
  return isQuoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

PosixDevice::PosixDevice(std::filesystem::path osRelease) : osRelease_(std::move(osRelease)) {}

std::string PosixDevice::systemVersion() const {
  constexpr std::string_view key = "VERSION_ID=";
  std::ifstream file(osRelease_);
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(key)) continue;
    if (auto version = unquoted(line.substr(key.size())); !version.empty()) return version;
  }
  utsname system{};
  return uname(&system) == 0 ? system.release : "";
}

std::string PosixDevice::localeIdentifier() const {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    std::string locale(value);
    locale.resize(std::min(locale.find_first_of(".@"), locale.size()));
    if (locale.empty() || locale == "C" || locale == "POSIX") break;
    return locale;
  }
  return "en_US";
}

std::string PosixDevice::timeZoneIdentifier() const {
  return TimeZone::current().identifier();
}

}  // namespace orrelo
