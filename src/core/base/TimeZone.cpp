#include "core/base/TimeZone.h"

#include <cstdlib>
#include <ctime>
#include <date/tz.h>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace orrelo {
namespace {

std::string currentIdentifier() {
  if (const char* tz = std::getenv("TZ"); tz != nullptr && *tz != '\0') return *tz == ':' ? tz + 1 : tz;
  std::error_code failure;
  const auto target = std::filesystem::read_symlink("/etc/localtime", failure).string();
  constexpr std::string_view folder = "zoneinfo/";
  if (const auto at = target.find(folder); !failure && at != std::string::npos) {
    return target.substr(at + folder.size());
  }
  return "UTC";
}

std::chrono::seconds localOffset(Date date) {
  const auto seconds =
      static_cast<std::time_t>(std::chrono::floor<std::chrono::seconds>(date.sinceEpoch()).count());
  std::tm local{};
  return localtime_r(&seconds, &local) != nullptr ? std::chrono::seconds(local.tm_gmtoff)
                                                  : std::chrono::seconds(0);
}

}  // namespace

TimeZone TimeZone::utc() {
  return {Kind::utc, "UTC"};
}

TimeZone TimeZone::current() {
  return {Kind::current, currentIdentifier()};
}

TimeZone TimeZone::named(std::string identifier) {
  return {Kind::named, std::move(identifier)};
}

std::chrono::seconds TimeZone::offset(Date date) const {
  switch (kind_) {
    case Kind::utc:
      return {};
    case Kind::current:
      return localOffset(date);
    case Kind::named:
      break;
  }
  try {
    const date::sys_time<std::chrono::microseconds> time(date.sinceEpoch());
    return date::locate_zone(identifier_)->get_info(date::floor<std::chrono::seconds>(time)).offset;
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace orrelo
