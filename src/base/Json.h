#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

class JsonObject;
class JsonArray;

/// A reference into a parsed document: the parser's own handle, stored opaquely so that only Json.cpp
/// includes the parser's header.
struct JsonHandle {
  const void* document;
  std::size_t index;
};

/// A value inside a parsed document; valid until its parser parses again or is destroyed.
///
/// The `as…` accessors return nullopt for a value of another type; the `…Value` ones throw a DecodingError.
class JsonValue {
 public:
  explicit JsonValue(JsonHandle handle) : handle_(handle) {}

  bool isNull() const;
  std::optional<bool> asBoolean() const;
  /// A whole number that fits into 64 bits; 1.0 is read as 1. A boolean is not a number.
  std::optional<std::int64_t> asInteger() const;
  std::optional<double> asNumber() const;
  std::optional<std::string_view> asText() const;
  std::optional<JsonObject> asObject() const;
  std::optional<JsonArray> asArray() const;

  JsonObject objectValue() const;
  JsonArray arrayValue() const;

 private:
  JsonHandle handle_;
};

class JsonObject {
 public:
  explicit JsonObject(JsonHandle handle) : handle_(handle) {}

  /// The first field with this key; nullopt if there is none.
  std::optional<JsonValue> find(std::string_view key) const;
  std::size_t size() const;

  /// The required fields. Throw a DecodingError for a missing key, for null and for a value of another type.
  bool boolean(std::string_view key) const;
  std::int64_t integer(std::string_view key) const;
  std::string text(std::string_view key) const;
  JsonObject object(std::string_view key) const;
  JsonArray array(std::string_view key) const;
  /// Returns nullopt for a missing key and for null; throws a DecodingError for a value of another type.
  std::optional<std::string> optionalText(std::string_view key) const;

  /// Calls `visit(key, value)` for each field, in document order.
  template <class Visit>
  void forEach(Visit visit) const {
    each([](void* context, std::string_view key,
            const JsonValue& value) { (*static_cast<Visit*>(context))(key, value); },
         &visit);
  }

 private:
  JsonValue require(std::string_view key) const;
  void each(void (*visit)(void*, std::string_view, const JsonValue&), void* context) const;

  JsonHandle handle_;
};

class JsonArray {
 public:
  explicit JsonArray(JsonHandle handle) : handle_(handle) {}

  std::size_t size() const;
  template <class Visit>
  void forEach(Visit visit) const {
    each([](void* context, const JsonValue& value) { (*static_cast<Visit*>(context))(value); }, &visit);
  }

 private:
  void each(void (*visit)(void*, const JsonValue&), void* context) const;

  JsonHandle handle_;
};

/// Parses JSON documents, one at a time, reusing its memory. Not thread-safe.
class JsonParser {
 public:
  static constexpr std::size_t maximumSize = std::size_t{8} * 1024 * 1024;
  /// The maximum nesting of non-empty arrays and objects; an empty one at the next level is still accepted.
  static constexpr std::size_t maximumDepth = 512;

  /// Accepts documents of up to `maximum` bytes.
  explicit JsonParser(std::size_t maximum = maximumSize);
  ~JsonParser();

  /// Throws DecodingError dataCorrupted if the document is not valid JSON or UTF-8, exceeds the maximum size
  /// or depth, or contains a number outside the range of a double.
  JsonValue parse(std::string_view bytes);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace orrelo
