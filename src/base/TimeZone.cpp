#include "base/TimeZone.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <date/tz.h>
#include <filesystem>
#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

namespace orrelo {
namespace {

/// The identifier of the zone whose file this path names; nullopt if the path is outside a zoneinfo folder.
std::optional<std::string> zoneOf(const std::filesystem::path& path) {
  constexpr std::string_view folder = "zoneinfo/";
  auto text = path.string();
  const auto at = text.find(folder);
  if (at == std::string::npos) return std::nullopt;
  text.erase(0, at + folder.size());
  // These folders repeat all zones, without and with leap seconds.
  for (const std::string_view variant : {"posix/", "right/"}) {
    if (text.starts_with(variant)) text.erase(0, variant.size());
  }
  const bool isName = !text.empty() && text.find("..") == std::string::npos;
  return isName ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<std::string> linkedZone(const std::filesystem::path& path) {
  std::error_code failure;
  const auto target = std::filesystem::read_symlink(path, failure);
  return failure ? std::nullopt : zoneOf(target);
}

/// The zone that TZ names by its identifier or its file; nullopt for a POSIX rule such as "KST-9".
std::optional<std::string> zoneOfEnvironment() {
  const char* const tz = std::getenv("TZ");
  if (tz == nullptr) return std::nullopt;
  const std::filesystem::path path(*tz == ':' ? tz + 1 : tz);
  if (path.is_absolute()) {
    auto zone = zoneOf(path);
    return zone ? zone : linkedZone(path);
  }
  const char* const folder = std::getenv("TZDIR");
  std::error_code failure;
  const auto file = std::filesystem::path(folder != nullptr ? folder : "/usr/share/zoneinfo") / path;
  return std::filesystem::is_regular_file(file, failure) ? zoneOf("zoneinfo" / path) : std::nullopt;
}

std::string currentIdentifier() {
  if (auto zone = zoneOfEnvironment()) return *zone;
  return linkedZone("/etc/localtime").value_or("UTC");
}

/// On some machines `time_t` has 32 bits. A date beyond them is replaced by the same day and time a multiple
/// of 28 years earlier: weekdays and leap days are the same then, and so is the offset by the zone's last
/// rules.
std::time_t systemTime(Date date) {
  constexpr std::int64_t earliest = std::numeric_limits<std::time_t>::min();
  constexpr std::int64_t latest = std::numeric_limits<std::time_t>::max();
  constexpr std::int64_t secondsIn28Years = std::int64_t{28 * 365 + 7} * 24 * 60 * 60;
  std::int64_t seconds = std::chrono::floor<std::chrono::seconds>(date.sinceEpoch()).count();
  if (seconds > latest) seconds -= ((seconds - latest - 1) / secondsIn28Years + 1) * secondsIn28Years;
  return static_cast<std::time_t>(std::max(seconds, earliest));
}

std::chrono::seconds localOffset(Date date) {
  const auto seconds = systemTime(date);
  std::tm local{};
  return localtime_r(&seconds, &local) != nullptr ? std::chrono::seconds(local.tm_gmtoff)
                                                  : std::chrono::seconds(0);
}

}  // namespace

TimeZone TimeZone::utc() {
  return {Kind::utc, "UTC"};
}

TimeZone TimeZone::current() {
  tzset();  // localtime_r alone keeps the zone of its first call
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
