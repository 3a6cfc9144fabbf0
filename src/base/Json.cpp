#include "base/Json.h"

#include "base/Error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace orrelo {
namespace {

[[noreturn]] void mismatch(std::string_view key, std::string_view wanted) {
  throw makeError(DecodingError::typeMismatch,
                  "\"" + std::string(key) + "\" is not " + std::string(wanted) + ".");
}

template <class T>
T required(std::optional<T> value, std::string_view key, std::string_view wanted) {
  if (!value) mismatch(key, wanted);
  return *std::move(value);
}

std::size_t endOfText(std::string_view json, std::size_t opening) {
  auto at = opening + 1;
  while (at < json.size() && json[at] != '"') at += json[at] == '\\' ? 2 : 1;
  return std::min(at + 1, json.size());
}

// The document with an exponent in place of the last two digits of each integer of more than 64 bits, which
// makes it a number that the library has room for.
std::string withoutWideIntegers(std::string_view bytes) {
  std::string json(bytes);
  std::size_t at = 0;
  while ((at = json.find_first_of("\"-0123456789", at)) != std::string::npos) {
    if (json[at] == '"') {
      at = endOfText(json, at);
      continue;
    }
    const auto end = std::min(json.find_first_not_of("+-.0123456789Ee", at), json.size());
    std::int64_t integer = 0;
    const auto [stop, error] = std::from_chars(json.data() + at, json.data() + end, integer);
    if (error == std::errc::result_out_of_range && stop == json.data() + end) json.replace(end - 2, 2, "e2");
    at = end;
  }
  return json;
}

}  // namespace

std::optional<bool> JsonValue::asBoolean() const {
  bool value = false;
  return element_.get(value) == simdjson::SUCCESS ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> JsonValue::asInteger() const {
  std::int64_t integer = 0;
  if (element_.get(integer) == simdjson::SUCCESS) return integer;
  double number = 0.0;
  if (!element_.is_double() || element_.get(number) != simdjson::SUCCESS) return std::nullopt;
  if (!(std::abs(number) < 0x1p63) || number != std::trunc(number)) return std::nullopt;
  return static_cast<std::int64_t>(number);
}

std::optional<double> JsonValue::asNumber() const {
  double number = 0.0;
  return element_.get(number) == simdjson::SUCCESS ? std::optional(number) : std::nullopt;
}

std::optional<std::string_view> JsonValue::asText() const {
  std::string_view text;
  return element_.get(text) == simdjson::SUCCESS ? std::optional(text) : std::nullopt;
}

std::optional<JsonObject> JsonValue::asObject() const {
  simdjson::dom::object object;
  return element_.get(object) == simdjson::SUCCESS ? std::optional(JsonObject(object)) : std::nullopt;
}

std::optional<JsonArray> JsonValue::asArray() const {
  simdjson::dom::array array;
  return element_.get(array) == simdjson::SUCCESS ? std::optional(JsonArray(array)) : std::nullopt;
}

JsonObject JsonValue::objectValue() const {
  return required(asObject(), "value", "an object");
}

JsonArray JsonValue::arrayValue() const {
  return required(asArray(), "value", "an array");
}

std::optional<JsonValue> JsonObject::find(std::string_view key) const {
  simdjson::dom::element element;
  return object_.at_key(key).get(element) == simdjson::SUCCESS ? std::optional(JsonValue(element))
                                                               : std::nullopt;
}

JsonValue JsonObject::require(std::string_view key) const {
  const auto value = find(key);
  if (!value) {
    throw makeError(DecodingError::keyNotFound, "No value associated with key \"" + std::string(key) + "\".");
  }
  if (value->isNull()) {
    throw makeError(DecodingError::valueNotFound, "\"" + std::string(key) + "\" is null.");
  }
  return *value;
}

bool JsonObject::boolean(std::string_view key) const {
  return required(require(key).asBoolean(), key, "a boolean");
}

std::int64_t JsonObject::integer(std::string_view key) const {
  return required(require(key).asInteger(), key, "an integer");
}

std::string JsonObject::text(std::string_view key) const {
  return std::string(required(require(key).asText(), key, "a text"));
}

JsonObject JsonObject::object(std::string_view key) const {
  return required(require(key).asObject(), key, "an object");
}

JsonArray JsonObject::array(std::string_view key) const {
  return required(require(key).asArray(), key, "an array");
}

std::optional<std::string> JsonObject::optionalText(std::string_view key) const {
  const auto value = find(key);
  if (!value || value->isNull()) return std::nullopt;
  return std::string(required(value->asText(), key, "a text"));
}

JsonValue JsonParser::parse(std::string_view bytes) {
  if (bytes.size() > maximum_) throw makeError(DecodingError::dataCorrupted, "The document is too large.");
  if (bytes.empty()) throw makeError(DecodingError::dataCorrupted, "The document is empty.");
  if (bytes.size() > capacity_ || capacity_ == 0) {
    // The library counts the document itself as a level.
    const auto wanted = std::clamp(bytes.size() * 2, std::size_t{1024}, maximum_);
    if (parser_.allocate(wanted, maximumDepth + 1) != simdjson::SUCCESS) {
      throw makeError(DecodingError::dataCorrupted, "There is no memory for the document.");
    }
    capacity_ = wanted;
  }
  simdjson::dom::element element;
  auto result = parser_.parse(bytes.data(), bytes.size()).get(element);
  if (result == simdjson::NUMBER_ERROR) {
    // One wide integer must not cost more than its field, and nothing where nobody reads that.
    result = parser_.parse(withoutWideIntegers(bytes)).get(element);
  }
  if (result != simdjson::SUCCESS) {
    throw makeError(DecodingError::dataCorrupted, simdjson::error_message(result));
  }
  return JsonValue(element);
}

}  // namespace orrelo
