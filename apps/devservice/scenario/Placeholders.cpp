#include "scenario/Placeholders.h"

#include <array>
#include <charconv>
#include <chrono>
#include <ctime>
#include <optional>
#include <string_view>
#include <system_error>

namespace orrelo::devservice {

namespace {

constexpr int mostDays = 366;

/// Percent-encodes all but the characters that stand for themselves everywhere in a URL and in JSON.
std::string encoded(const std::string& text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (const char byte : text) {
    const bool isAlphanumeric =
        (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    if (isAlphanumeric || std::string_view("-._~").find(byte) != std::string_view::npos) {
      result += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      result += {'%', digits[value >> 4U], digits[value & 15U]};
    }
  }
  return result;
}

/// The offset in "-3" or "+30".
std::optional<int> offsetOf(std::string_view text) {
  if (text.size() < 2 || (text.front() != '-' && text.front() != '+')) return std::nullopt;
  int days = 0;
  const auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), days);
  if (error != std::errc{} || end != text.data() + text.size() || days < 0 || days > mostDays) {
    return std::nullopt;
  }
  return text.front() == '-' ? -days : days;
}

std::optional<std::string> valueOf(std::string_view name, const Caller& caller, const Scenario& scenario) {
  constexpr std::string_view today = "today";
  if (name == "service") return caller.serviceUrl;
  if (name == "app") return encoded(caller.appKey);
  if (name == "month") return dayOf(scenario).substr(0, 7);
  if (name == today) return dayOf(scenario);
  if (!name.starts_with(today)) return std::nullopt;
  const auto offset = offsetOf(name.substr(today.size()));
  return offset ? std::optional(dayOf(scenario, *offset)) : std::nullopt;
}

}  // namespace

std::string dayOf(const Scenario& scenario, int offset) {
  const auto now = std::chrono::system_clock::to_time_t(scenario.now());
  std::tm local{};
  localtime_r(&now, &local);
  local.tm_mday += offset;
  local.tm_isdst = -1;
  std::mktime(&local);
  std::array<char, 16> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
}

std::string fillIn(const std::string& text, const Caller& caller, const Scenario& scenario) {
  constexpr std::string_view opening = "{{";
  constexpr std::string_view closing = "}}";
  std::string result;
  std::string_view rest = text;
  for (auto at = rest.find(opening); at != std::string_view::npos; at = rest.find(opening)) {
    const auto nameAt = at + opening.size();
    const auto end = rest.find(closing, nameAt);
    const auto value = end == std::string_view::npos
                           ? std::nullopt
                           : valueOf(rest.substr(nameAt, end - nameAt), caller, scenario);
    if (value) {
      result.append(rest.substr(0, at)).append(*value);
      rest.remove_prefix(end + closing.size());
    } else {
      // Only its first brace is passed, since the next one can open a placeholder.
      result.append(rest.substr(0, at + 1));
      rest.remove_prefix(at + 1);
    }
  }
  return result.append(rest);
}

}  // namespace orrelo::devservice
