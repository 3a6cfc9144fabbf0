#include "base/JsonFields.h"

#include "base/PageOmissions.h"

#include <algorithm>

namespace orrelo {
namespace {

bool isTrueText(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
  return !text.empty() && std::string_view("YyTt123456789").find(text.front()) != std::string_view::npos;
}

}  // namespace

void explainLeftOut(const JsonValue& value, const Error& why) {
  explainOmission(value, "", [&] {
    return "is left out, as if the service had not sent it: " + why.localizedDescription();
  });
}

std::vector<std::string> textsOf(const JsonObject& json, std::string_view key) {
  const auto array = json.array(key);
  std::vector<std::string> texts;
  texts.reserve(array.size());
  array.forEach([&](const JsonValue& value) {
    const auto text = value.asText();
    if (!text) {
      throw makeError(DecodingError::typeMismatch, "\"" + std::string(key) + "\" holds more than texts.");
    }
    texts.emplace_back(*text);
  });
  return texts;
}

bool flexibleBoolean(const JsonObject& json, std::string_view key) {
  const auto value = json.find(key);
  if (const auto text = value ? value->asText() : std::nullopt) return isTrueText(*text);
  return json.boolean(key);
}

std::optional<std::string> tolerantText(const JsonObject& json, std::string_view key) {
  const auto value = json.find(key);
  if (!value || value->isNull()) return std::nullopt;
  const auto text = value->asText();
  if (!text) explainLeftOut(*value, makeError(DecodingError::typeMismatch, "it is not a text."));
  return text ? std::optional(std::string(*text)) : std::nullopt;
}

}  // namespace orrelo
