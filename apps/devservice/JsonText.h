#pragma once

#include "http/Reply.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// Compact JSON text. Bytes that are not UTF-8, as a percent-encoded path may contain, become replacement
/// characters.
inline std::string toText(const nlohmann::json& json) {
  return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

inline Reply jsonReply(int status, const nlohmann::json& json) {
  return Reply::text(status, toText(json));
}

inline Reply errorReply(int status, const std::string& message) {
  return jsonReply(status, {{"error", message}});
}

/// The text of a string member; absent if it is missing or not a string.
inline std::optional<std::string> stringAt(const nlohmann::json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end() || !found->is_string()) return std::nullopt;
  return found->get<std::string>();
}

/// The value of a whole number within the bounds; absent for any other value.
inline std::optional<std::int64_t> integerOf(const nlohmann::json& value, std::int64_t least,
                                             std::int64_t most) {
  const bool isTooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX;
  if (!value.is_number_integer() || isTooLarge) return std::nullopt;
  const auto integer = value.get<std::int64_t>();
  return integer >= least && integer <= most ? std::optional(integer) : std::nullopt;
}

}  // namespace orrelo::devservice
