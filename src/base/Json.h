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

/// A place in a parsed document, in the form of the parser, whose header only Json.cpp includes.
struct JsonPlace {
  const void* document;
  std::size_t index;
};

/// A value inside a parsed document; valid until its parser parses again or goes.
///
/// The `as…` accessors give nothing for a value of another type; the `…Value` forms throw a DecodingError
/// then.
class JsonValue {
 public:
  explicit JsonValue(JsonPlace place) : place_(place) {}

  bool isNull() const;
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
  JsonPlace place_;
};

class JsonObject {
 public:
  explicit JsonObject(JsonPlace place) : place_(place) {}

  /// Of doubled keys the first.
  std::optional<JsonValue> find(std::string_view key) const;
  std::size_t size() const;

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
    each([](void* context, std::string_view key,
            const JsonValue& value) { (*static_cast<Visit*>(context))(key, value); },
         &visit);
  }

 private:
  JsonValue require(std::string_view key) const;
  void each(void (*visit)(void*, std::string_view, const JsonValue&), void* context) const;

  JsonPlace place_;
};

class JsonArray {
 public:
  explicit JsonArray(JsonPlace place) : place_(place) {}

  std::size_t size() const;
  template <class Visit>
  void forEach(Visit visit) const {
    each([](void* context, const JsonValue& value) { (*static_cast<Visit*>(context))(value); }, &visit);
  }

 private:
  void each(void (*visit)(void*, const JsonValue&), void* context) const;

  JsonPlace place_;
};

/// Reads JSON documents, one at a time, reusing its memory. Not for two threads at once.
class JsonParser {
 public:
  static constexpr std::size_t maximumSize = std::size_t{8} * 1024 * 1024;
  /// Of arrays and objects that hold something; an empty one within the innermost of them is still read.
  static constexpr std::size_t maximumDepth = 512;

  /// Documents of up to `maximum` bytes.
  explicit JsonParser(std::size_t maximum = maximumSize);
  ~JsonParser();

  /// Throws DecodingError dataCorrupted for what is no JSON, no UTF-8, larger or nested deeper than the
  /// maxima, and for a number past a double's range.
  JsonValue parse(std::string_view bytes);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace orrelo
