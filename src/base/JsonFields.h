#pragma once

#include "base/Error.h"
#include "base/Json.h"

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orrelo {

/// Explains that a value of a reply is left out, by its place; see explainOmission.
void explainLeftOut(const JsonValue& value, const Error& why);

/// A required array of texts. Throws a DecodingError.
std::vector<std::string> textsOf(const JsonObject& json, std::string_view key);

/// A required flag, sent as a boolean or as a text. A text is true if its first character after white space,
/// a sign and zeros is one of "YyTt" or a digit from 1 to 9.
bool flexibleBoolean(const JsonObject& json, std::string_view key);

/// Returns nullopt for a missing key and for a value that is not a text.
std::optional<std::string> tolerantText(const JsonObject& json, std::string_view key);

/// Decodes each object of the array at `key`. Returns nullopt for a missing key and for null. Throws a
/// DecodingError if the value is not an array of objects, and whatever `decode` throws.
template <class Decode>
auto optionalRecords(const JsonObject& json, std::string_view key, Decode decode)
    -> std::optional<std::vector<std::invoke_result_t<Decode&, const JsonObject&>>> {
  const auto value = json.find(key);
  if (!value || value->isNull()) return std::nullopt;
  std::vector<std::invoke_result_t<Decode&, const JsonObject&>> records;
  value->arrayValue().forEach([&](const JsonValue& row) { records.push_back(decode(row.objectValue())); });
  return records;
}

/// Decodes the object at `key`; returns nullopt if it is missing, not an object, or cannot be decoded.
template <class Decode>
auto tolerantRecord(const JsonObject& json, std::string_view key, Decode decode)
    -> std::optional<std::invoke_result_t<Decode&, const JsonObject&>> {
  const auto value = json.find(key);
  if (!value || value->isNull()) return std::nullopt;
  try {
    return decode(value->objectValue());
  } catch (const Error& error) {
    explainLeftOut(*value, error);
    return std::nullopt;
  }
}

}  // namespace orrelo
