#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <simdjson.h>
#include <string>
#include <string_view>

namespace orrelo {

class JsonObject;
class JsonArray;

/// A value inside a parsed document; valid until its parser parses again or goes.
///
/// The `as…` accessors give nothing for a value of another type; the `…Value` forms throw a DecodingError
/// then.
class JsonValue {
 public:
  explicit JsonValue(simdjson::dom::element element) : element_(element) {}

  bool isNull() const { return element_.is_null(); }
  std::optional<bool> asBoolean() const;
  /// A whole number of 64 bits; 1.0 counts as 1. A boolean is no number.
  std::optional<std::int64_t> asInteger() const;
  std::optional<double> asNumber() const;
  std::optional<std::string_view> asText() const;
  std::optional<JsonObject> asObject() const;
  std::optional<JsonArray> asArray() const;

  JsonObject objectValue() const;
  JsonArray arrayValue() const;

 private:
  simdjson::dom::element element_;
};

class JsonObject {
 public:
  explicit JsonObject(simdjson::dom::object object) : object_(object) {}

  /// Of doubled keys the first.
  std::optional<JsonValue> find(std::string_view key) const;
  std::size_t size() const { return object_.size(); }

  /// The required fields: a missing key, null and a value of another type throw a DecodingError.
  bool boolean(std::string_view key) const;
  std::int64_t integer(std::string_view key) const;
  std::string text(std::string_view key) const;
  JsonObject object(std::string_view key) const;
  JsonArray array(std::string_view key) const;
  /// Nothing for a missing key and for null; a value of another type throws.
  std::optional<std::string> optionalText(std::string_view key) const;

  /// Calls `visit(key, value)` for each field in the order of the document.
  template <class Visit>
  void forEach(Visit visit) const {
    for (const auto field : object_) visit(field.key, JsonValue(field.value));
  }

 private:
  JsonValue require(std::string_view key) const;

  simdjson::dom::object object_;
};

class JsonArray {
 public:
  explicit JsonArray(simdjson::dom::array array) : array_(array) {}

  std::size_t size() const { return array_.size(); }
  template <class Visit>
  void forEach(Visit visit) const {
    for (const auto element : array_) visit(JsonValue(element));
  }

 private:
  simdjson::dom::array array_;
};

/// Reads JSON documents, one at a time, reusing its memory. Not for two threads at once.
class JsonParser {
 public:
  static constexpr std::size_t maximumSize = std::size_t{8} * 1024 * 1024;
  /// Of arrays and objects that hold something; an empty one within the innermost of them is still read.
  static constexpr std::size_t maximumDepth = 512;

  /// Documents of up to `maximum` bytes.
  explicit JsonParser(std::size_t maximum = maximumSize) : maximum_(maximum), parser_(maximum) {}

  /// Throws DecodingError dataCorrupted for what is no JSON, no UTF-8, larger or nested deeper than the
  /// maxima, and for a number past a double's range.
  JsonValue parse(std::string_view bytes);

 private:
  std::size_t maximum_;
  simdjson::dom::parser parser_;
  std::size_t capacity_ = 0;
};

}  // namespace orrelo
