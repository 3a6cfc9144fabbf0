#include "base/Json.h"

#include "base/Error.h"
#include "base/PageOmissions.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <simdjson.h>
#include <system_error>

namespace orrelo {
namespace {

namespace dom = simdjson::dom;

JsonHandle handleOf(const auto& node) {
  return std::bit_cast<JsonHandle>(node);
}

template <class Node>
Node node(JsonHandle handle) {
  return std::bit_cast<Node>(handle);
}

// Finds the first field with this key. Records are decoded key by key, so this runs for every field.
// Comparing the first characters excludes most keys of the same length without a call of memcmp.
inline bool findField(JsonHandle handle, std::string_view key, dom::element& value) {
  const auto object = node<dom::object>(handle);
  const char first = key.empty() ? '\0' : key.front();
  const auto end = object.end();
  for (auto field = object.begin(); field != end; ++field) {
    if (field.key_length() != key.size() || *field.key_c_str() != first || !field.key_equals(key)) continue;
    value = field.value();
    return true;
  }
  return false;
}

// The text of a field; nullopt if there is none, whatever the reason.
inline std::optional<std::string_view> findText(JsonHandle handle, std::string_view key) {
  dom::element element;
  std::string_view text;
  const bool isText = findField(handle, key, element) && element.get(text) == simdjson::SUCCESS;
  return isText ? std::optional(text) : std::nullopt;
}

// The key, or the whole place in the document if somebody reads why a part of it is left out.
std::string nameOf(const JsonObject& object, std::string_view key) {
  std::string name = "\"";
  if (isOmissionNoted()) name += jsonPointer(object) + "/";
  return name.append(key).append("\"");
}

std::string nameOf(const JsonValue& value) {
  return isOmissionNoted() ? "\"" + jsonPointer(value) + "\"" : "\"value\"";
}

template <class T, class Name>
T required(std::optional<T> value, const Name& name, std::string_view wanted) {
  if (!value) throw makeError(DecodingError::typeMismatch, name() + " is not " + std::string(wanted) + ".");
  return *std::move(value);
}

std::size_t endOfText(std::string_view json, std::size_t opening) {
  auto at = opening + 1;
  while (at < json.size() && json[at] != '"') at += json[at] == '\\' ? 2 : 1;
  return std::min(at + 1, json.size());
}

// Replaces the last two digits of each integer wider than 64 bits by the exponent "e2", so that the library
// parses it as a double instead of rejecting the document.
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

bool JsonValue::isNull() const {
  return node<dom::element>(handle_).is_null();
}

std::optional<bool> JsonValue::asBoolean() const {
  bool value = false;
  return node<dom::element>(handle_).get(value) == simdjson::SUCCESS ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> JsonValue::asInteger() const {
  const auto element = node<dom::element>(handle_);
  std::int64_t integer = 0;
  if (element.get(integer) == simdjson::SUCCESS) return integer;
  double number = 0.0;
  if (!element.is_double() || element.get(number) != simdjson::SUCCESS) return std::nullopt;
  if (!(std::abs(number) < 0x1p63) || number != std::trunc(number)) return std::nullopt;
  return static_cast<std::int64_t>(number);
}

std::optional<double> JsonValue::asNumber() const {
  double number = 0.0;
  return node<dom::element>(handle_).get(number) == simdjson::SUCCESS ? std::optional(number) : std::nullopt;
}

std::optional<std::string_view> JsonValue::asText() const {
  std::string_view text;
  return node<dom::element>(handle_).get(text) == simdjson::SUCCESS ? std::optional(text) : std::nullopt;
}

std::optional<JsonObject> JsonValue::asObject() const {
  dom::object object;
  return node<dom::element>(handle_).get(object) == simdjson::SUCCESS
             ? std::optional(JsonObject(handleOf(object)))
             : std::nullopt;
}

std::optional<JsonArray> JsonValue::asArray() const {
  dom::array array;
  return node<dom::element>(handle_).get(array) == simdjson::SUCCESS
             ? std::optional(JsonArray(handleOf(array)))
             : std::nullopt;
}

JsonObject JsonValue::objectValue() const {
  return required(
      asObject(), [this] { return nameOf(*this); }, "an object");
}

JsonArray JsonValue::arrayValue() const {
  return required(
      asArray(), [this] { return nameOf(*this); }, "an array");
}

std::optional<JsonValue> JsonObject::find(std::string_view key) const {
  dom::element element;
  return findField(handle_, key, element) ? std::optional(JsonValue(handleOf(element))) : std::nullopt;
}

std::size_t JsonObject::size() const {
  return node<dom::object>(handle_).size();
}

void JsonObject::each(void (*visit)(void*, std::string_view, const JsonValue&), void* context) const {
  for (const auto field : node<dom::object>(handle_))
    visit(context, field.key, JsonValue(handleOf(field.value)));
}

JsonValue JsonObject::require(std::string_view key) const {
  const auto value = find(key);
  if (!value) {
    throw makeError(DecodingError::keyNotFound, "No value associated with key " + nameOf(*this, key) + ".");
  }
  if (value->isNull()) {
    throw makeError(DecodingError::valueNotFound, nameOf(*this, key) + " is null.");
  }
  return *value;
}

bool JsonObject::boolean(std::string_view key) const {
  return required(
      require(key).asBoolean(), [&] { return nameOf(*this, key); }, "a boolean");
}

std::int64_t JsonObject::integer(std::string_view key) const {
  return required(
      require(key).asInteger(), [&] { return nameOf(*this, key); }, "an integer");
}

std::string JsonObject::text(std::string_view key) const {
  if (const auto text = findText(handle_, key)) return std::string(*text);
  return std::string(required(
      require(key).asText(), [&] { return nameOf(*this, key); }, "a text"));
}

JsonObject JsonObject::object(std::string_view key) const {
  return required(
      require(key).asObject(), [&] { return nameOf(*this, key); }, "an object");
}

JsonArray JsonObject::array(std::string_view key) const {
  return required(
      require(key).asArray(), [&] { return nameOf(*this, key); }, "an array");
}

std::optional<std::string> JsonObject::optionalText(std::string_view key) const {
  if (const auto text = findText(handle_, key)) return std::string(*text);
  const auto value = find(key);
  if (!value || value->isNull()) return std::nullopt;
  return std::string(required(
      value->asText(), [&] { return nameOf(*this, key); }, "a text"));
}

std::size_t JsonArray::size() const {
  return node<dom::array>(handle_).size();
}

void JsonArray::each(void (*visit)(void*, const JsonValue&), void* context) const {
  for (const auto element : node<dom::array>(handle_)) visit(context, JsonValue(handleOf(element)));
}

struct JsonParser::State {
  explicit State(std::size_t maximumBytes) : maximum(maximumBytes), parser(maximumBytes) {}

  /// The largest document accepted and the size that memory is allocated for, in bytes.
  std::size_t maximum;
  std::size_t capacity = 0;
  dom::parser parser;
};

JsonParser::JsonParser(std::size_t maximum) : state_(std::make_unique<State>(maximum)) {}
JsonParser::~JsonParser() = default;

JsonValue JsonParser::parse(std::string_view bytes) {
  auto& [maximum, capacity, parser] = *state_;
  if (bytes.size() > maximum) throw makeError(DecodingError::dataCorrupted, "The document is too large.");
  if (bytes.empty()) throw makeError(DecodingError::dataCorrupted, "The document is empty.");
  if (bytes.size() > capacity || capacity == 0) {
    // The library counts the document itself as one level of depth.
    const auto wanted = std::clamp(bytes.size() * 2, std::size_t{1024}, maximum);
    if (parser.allocate(wanted, maximumDepth + 1) != simdjson::SUCCESS) {
      throw makeError(DecodingError::dataCorrupted, "There is no memory for the document.");
    }
    capacity = wanted;
  }
  dom::element element;
  auto result = parser.parse(bytes.data(), bytes.size()).get(element);
  if (result == simdjson::NUMBER_ERROR) {
    // A wide integer makes only its own field unreadable, not the whole document.
    result = parser.parse(withoutWideIntegers(bytes)).get(element);
  }
  if (result != simdjson::SUCCESS) {
    throw makeError(DecodingError::dataCorrupted, simdjson::error_message(result));
  }
  return JsonValue(handleOf(element));
}

}  // namespace orrelo
