#pragma once

#include "base/Error.h"
#include "base/Json.h"

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orrelo {

/// A required list of texts.
std::vector<std::string> textsOf(const JsonObject& json, std::string_view key);

/// A required flag, sent as a boolean or as a text: true where, after blanks, a sign and zeros, the text goes
/// on with one of "YyTt" or with a digit from 1 to 9.
bool flexibleBoolean(const JsonObject& json, std::string_view key);

/// Nothing for a missing key and for whatever is no text.
std::optional<std::string> tolerantText(const JsonObject& json, std::string_view key);

/// What `decode` reads from each object of the list at `key`; nothing for a missing key and for null. Throws
/// where the value is no list of objects, and what `decode` throws.
template <class Decode>
auto optionalRecords(const JsonObject& json, std::string_view key, Decode decode)
    -> std::optional<std::vector<std::invoke_result_t<Decode&, const JsonObject&>>> {
  const auto value = json.find(key);
  if (!value || value->isNull()) return std::nullopt;
  std::vector<std::invoke_result_t<Decode&, const JsonObject&>> records;
  value->arrayValue().forEach([&](const JsonValue& row) { records.push_back(decode(row.objectValue())); });
  return records;
}

/// What `decode` reads from the object at `key`; nothing where that is missing or cannot be read.
template <class Decode>
auto tolerantRecord(const JsonObject& json, std::string_view key, Decode decode)
    -> std::optional<std::invoke_result_t<Decode&, const JsonObject&>> {
  const auto value = json.find(key);
  const auto object = value ? value->asObject() : std::nullopt;
  if (!object) return std::nullopt;
  try {
    return decode(*object);
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace orrelo
